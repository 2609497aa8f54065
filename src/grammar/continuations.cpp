#include "grammar/continuations.h"

#include "grammar/expandableprocessors.h"

#include <typeinfo>

namespace Halvorin::TextMate {

bool sameState(const AbstractContinuationProcessorStackItem* first,
               const AbstractContinuationProcessorStackItem* second)
{
    for (; first != second; first = first->parent().get(), second = second->parent().get()) {
        if (first == nullptr || second == nullptr || typeid(*first) != typeid(*second) ||
            !first->isLike(*second))
            return false;
    }
    return true;
}

bool AbstractRuleContinuationProcessorStackItem::isLike(
    const AbstractContinuationProcessorStackItem& other) const
{
    return &m_rule == &static_cast<const AbstractRuleContinuationProcessorStackItem&>(other).m_rule;
}

bool BeginEndContinuationProcessorStackItem::isLike(const AbstractContinuationProcessorStackItem& other) const
{
    return AbstractRuleContinuationProcessorStackItem::isLike(other) &&
           m_beginCaptures ==
               static_cast<const BeginEndContinuationProcessorStackItem&>(other).m_beginCaptures;
}

bool ContentContinuationProcessorStackItem::isLike(const AbstractContinuationProcessorStackItem& other) const
{
    return m_owner->isLike(*static_cast<const ContentContinuationProcessorStackItem&>(other).m_owner);
}

bool RootContinuationProcessorStackItem::isLike(const AbstractContinuationProcessorStackItem&) const
{
    return true;
}

ProcessResult MatchContinuationProcessorStackItem::continueProcessing(std::optional<int> previousEnd,
                                                                      GrammarLine&) const
{
    return Completed{previousEnd.value_or(0)};
}

ProcessResult BeginEndContinuationProcessorStackItem::continueProcessing(std::optional<int> previousEnd,
                                                                         GrammarLine& line) const
{
    return std::make_shared<BeginEndProcessorStackItem>(*this, previousEnd.value_or(0))->processContent(line);
}

ProcessResult ContentContinuationProcessorStackItem::continueProcessing(std::optional<int> previousEnd,
                                                                        GrammarLine& line) const
{
    return m_owner->continueProcessing(previousEnd, line);
}

ProcessResult RootContinuationProcessorStackItem::continueProcessing(std::optional<int> previousEnd,
                                                                     GrammarLine& line) const
{
    return std::make_shared<RootProcessorStackItem>(line.rules().rootScopes(), previousEnd.value_or(0))
        ->process(line);
}

} // namespace Halvorin::TextMate
