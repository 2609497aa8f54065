#ifndef EXPANDABLEPROCESSORS_H
#define EXPANDABLEPROCESSORS_H

#include "grammar/ruleprocessors.h"

namespace Halvorin::TextMate {

/// An item that holds patterns and lets them match one after the other.
class ExpandableProcessorStackItem : public AbstractGrammarProcessorStackItem
{
protected:
    using AbstractGrammarProcessorStackItem::AbstractGrammarProcessorStackItem;

    /// What the pattern that matches next is; nothing where no more may open.
    std::shared_ptr<AbstractGrammarProcessorStackItem> nextItem(GrammarLine& line, const ResolvedRules& rules,
                                                                int position);

    /// What became of an inner item.
    enum class Outcome
    {
        finished,
        open,   ///< at the end of the line: `result` is what this item gives, too
        nothing ///< it matched nothing, and would for ever
    };

    Outcome processNext(GrammarLine& line, AbstractGrammarProcessorStackItem& next, ProcessResult& result);
};

/// What stands between "begin" and "end".
class ContentProcessorStackItem : public ExpandableProcessorStackItem
{
public:
    ContentProcessorStackItem(GrammarLine& line, const std::shared_ptr<BeginEndProcessorStackItem>& owner,
                              int position);

    ProcessResult process(GrammarLine& line) override;
    std::shared_ptr<const AbstractContinuationProcessorStackItem> makeContinuation() const override;

private:
    /// Whether "end" stands before the next item, or where it starts.
    bool endsBefore(GrammarLine& line, const AbstractGrammarProcessorStackItem& next);

    BeginEndProcessorStackItem& m_owner; // it stands as long as this item does
};

/// The top level of the grammar.
class RootProcessorStackItem : public ExpandableProcessorStackItem
{
public:
    RootProcessorStackItem(const QStringList& scopes, int position)
        : ExpandableProcessorStackItem(0, position, scopes, nullptr)
    {}

    ProcessResult process(GrammarLine& line) override;
    std::shared_ptr<const AbstractContinuationProcessorStackItem> makeContinuation() const override;
};

} // namespace Halvorin::TextMate

#endif
