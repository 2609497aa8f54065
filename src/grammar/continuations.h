#ifndef CONTINUATIONS_H
#define CONTINUATIONS_H

#include "grammar/continuation.h"
#include "grammar/rulesearch.h"
#include "grammar/stackitem.h"

namespace Halvorin::TextMate {

/// The continuation of an item of one rule.
class AbstractRuleContinuationProcessorStackItem : public AbstractContinuationProcessorStackItem
{
public:
    const ResolvedRule& rule() const { return m_rule; }

protected:
    AbstractRuleContinuationProcessorStackItem(
        const ResolvedRule& rule, const QStringList& scopes, int depth,
        std::shared_ptr<const AbstractContinuationProcessorStackItem> parent)
        : AbstractContinuationProcessorStackItem(scopes, depth, std::move(parent)), m_rule(rule)
    {}

    bool isLike(const AbstractContinuationProcessorStackItem& other) const override;

private:
    const ResolvedRule& m_rule;
};

/// Of a match, which is never open: it goes on with what is around it.
class MatchContinuationProcessorStackItem : public AbstractRuleContinuationProcessorStackItem
{
public:
    MatchContinuationProcessorStackItem(const ResolvedRule& rule, const QStringList& scopes, int depth,
                                        std::shared_ptr<const AbstractContinuationProcessorStackItem> parent)
        : AbstractRuleContinuationProcessorStackItem(rule, scopes, depth, std::move(parent))
    {}

    ProcessResult continueProcessing(std::optional<int> previousEnd, GrammarLine& line) const override;
};

/// Of a rule with "begin" whose "end" has not come.
class BeginEndContinuationProcessorStackItem : public AbstractRuleContinuationProcessorStackItem
{
public:
    BeginEndContinuationProcessorStackItem(
        const ResolvedRule& rule, const QStringList& beginCaptures, const QStringList& scopes, int depth,
        std::shared_ptr<const AbstractContinuationProcessorStackItem> parent)
        : AbstractRuleContinuationProcessorStackItem(rule, scopes, depth, std::move(parent)),
          m_beginCaptures(beginCaptures)
    {}

    ProcessResult continueProcessing(std::optional<int> previousEnd, GrammarLine& line) const override;

    /// The texts of groups from 1 on, behind an empty one for the whole match; none when "end" speaks of no
    /// group.
    const QStringList& beginCaptures() const { return m_beginCaptures; }

    bool isLike(const AbstractContinuationProcessorStackItem& other) const override;

private:
    QStringList m_beginCaptures;
};

/// Of the content around an open item. Behind that item it goes on, and then its owner does; what it leads to
/// is around both.
class ContentContinuationProcessorStackItem : public AbstractRuleContinuationProcessorStackItem
{
public:
    ContentContinuationProcessorStackItem(std::shared_ptr<const BeginEndContinuationProcessorStackItem> owner,
                                          const QStringList& scopes, int depth)
        : AbstractRuleContinuationProcessorStackItem(owner->rule(), scopes, depth, owner->parent()),
          m_owner(std::move(owner))
    {}

    ProcessResult continueProcessing(std::optional<int> previousEnd, GrammarLine& line) const override;

protected:
    bool isLike(const AbstractContinuationProcessorStackItem& other) const override;

private:
    std::shared_ptr<const BeginEndContinuationProcessorStackItem> m_owner;
};

/// The end of the chain.
class RootContinuationProcessorStackItem : public AbstractContinuationProcessorStackItem
{
public:
    explicit RootContinuationProcessorStackItem(const QStringList& scopes)
        : AbstractContinuationProcessorStackItem(scopes, 0, nullptr)
    {}
    ProcessResult continueProcessing(std::optional<int> previousEnd, GrammarLine& line) const override;

protected:
    bool isLike(const AbstractContinuationProcessorStackItem& other) const override;
};

} // namespace Halvorin::TextMate

#endif
