#ifndef RULEPROCESSORS_H
#define RULEPROCESSORS_H

#include "grammar/stackitem.h"

namespace Halvorin::TextMate {

/// An item of one rule. Its scopes are those around it and the rule's "name".
class AbstractRuleProcessorStackItem : public AbstractGrammarProcessorStackItem
{
public:
    const ResolvedRule& rule() const { return m_rule; }

protected:
    AbstractRuleProcessorStackItem(const ResolvedRule& rule, int start, int end, const QStringList& scopes,
                                   const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent)
        : AbstractGrammarProcessorStackItem(start, end, scopes, parent), m_rule(rule)
    {}
    AbstractRuleProcessorStackItem(const ResolvedRule& rule, int start, int end, const QStringList& scopes,
                                   int depth)
        : AbstractGrammarProcessorStackItem(start, end, scopes, depth), m_rule(rule)
    {}

private:
    const ResolvedRule& m_rule;
};

/// An item of a rule that has matched.
class AbstractMatchRuleProcessorStackItem : public AbstractRuleProcessorStackItem
{
protected:
    AbstractMatchRuleProcessorStackItem(GrammarLine& line, RuleMatch match,
                                        const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent);
    /// One that matched on an earlier line and goes on at a position.
    AbstractMatchRuleProcessorStackItem(const ResolvedRule& rule, int position, const QStringList& scopes,
                                        int depth)
        : AbstractRuleProcessorStackItem(rule, position, position, scopes, depth)
    {}

    const Match& match() const { return m_match; }

private:
    Match m_match;
};

/// A rule with "match".
class MatchProcessorStackItem : public AbstractMatchRuleProcessorStackItem
{
public:
    MatchProcessorStackItem(GrammarLine& line, RuleMatch match,
                            const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent)
        : AbstractMatchRuleProcessorStackItem(line, std::move(match), parent)
    {}

    ProcessResult process(GrammarLine& line) override;
    std::shared_ptr<const AbstractContinuationProcessorStackItem> makeContinuation() const override;
};

class BeginEndContinuationProcessorStackItem;

/// A rule with "begin", and "end" or none: without one it never closes.
class BeginEndProcessorStackItem : public AbstractMatchRuleProcessorStackItem
{
public:
    BeginEndProcessorStackItem(GrammarLine& line, RuleMatch match,
                               const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent)
        : AbstractMatchRuleProcessorStackItem(line, std::move(match), parent)
    {}
    /// The item of an earlier line, which goes on at a position.
    BeginEndProcessorStackItem(const BeginEndContinuationProcessorStackItem& continuation, int position);

    ProcessResult process(GrammarLine& line) override;
    /// Runs the content from the item's end on, then looks for "end".
    ProcessResult processContent(GrammarLine& line);
    /// Whether "end" matches at or behind a position.
    bool matchEnd(GrammarLine& line, int position, Match& match);
    /// Looks for "end" from a position on.
    ProcessResult finish(GrammarLine& line, int position);

    std::shared_ptr<const AbstractContinuationProcessorStackItem> makeContinuation() const override;

    const QStringList& contentScopes(GrammarLine& line) const;

private:
    std::shared_ptr<const AbstractContinuationProcessorStackItem> m_continuation; ///< of the earlier line
    QStringList m_beginCaptures; ///< the texts of the groups of "begin", when "end" speaks of them
    std::optional<PreparedExpression> m_end; ///< with them
};

} // namespace Halvorin::TextMate

#endif
