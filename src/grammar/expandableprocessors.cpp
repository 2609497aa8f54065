#include "grammar/expandableprocessors.h"

#include "grammar/continuations.h"

namespace Halvorin::TextMate {

namespace {

/// Items in items beyond this depth do not open: text from outside must not decide how deep the stack of
/// calls is.
constexpr int maximumDepth = 500;

} // namespace

std::shared_ptr<AbstractGrammarProcessorStackItem>
ExpandableProcessorStackItem::nextItem(GrammarLine& line, const ResolvedRules& rules, int position)
{
    std::optional<RuleMatch> match = line.bestMatch(rules, position, anchor(), true);
    if (match && match->rule->isBeginEnd() && depth() >= maximumDepth) {
        line.rules().reportOnce("rules are nested too deeply");
        match = line.bestMatch(rules, position, anchor(), false);
    }
    if (!match)
        return nullptr;
    const auto self = std::static_pointer_cast<AbstractGrammarProcessorStackItem>(shared_from_this());
    if (match->rule->isBeginEnd())
        return std::make_shared<BeginEndProcessorStackItem>(line, *std::move(match), self);
    return std::make_shared<MatchProcessorStackItem>(line, *std::move(match), self);
}

ExpandableProcessorStackItem::Outcome
ExpandableProcessorStackItem::processNext(GrammarLine& line, AbstractGrammarProcessorStackItem& next,
                                          ProcessResult& result)
{
    result = next.process(line);
    if (std::holds_alternative<Continued>(result)) {
        setEnd(line.length());
        return Outcome::open;
    }
    setEnd(next.end());
    return next.length() > 0 ? Outcome::finished : Outcome::nothing;
}

ContentProcessorStackItem::ContentProcessorStackItem(GrammarLine& line,
                                                     const std::shared_ptr<BeginEndProcessorStackItem>& owner,
                                                     int position)
    : ExpandableProcessorStackItem(position, position, owner->contentScopes(line), owner), m_owner(*owner)
{}

ProcessResult ContentProcessorStackItem::process(GrammarLine& line)
{
    const GrammarRule& source = *m_owner.rule().rule;
    if (!source.patterns)
        return Completed{end()};
    const ResolvedRules& rules = line.rules().patternsOf(source);
    ProcessResult result;
    while (const auto next = nextItem(line, rules, end())) {
        if (endsBefore(line, *next))
            break;
        const Outcome outcome = processNext(line, *next, result);
        if (outcome == Outcome::open)
            return result;
        if (outcome == Outcome::nothing)
            return Continued{line.length(), makeContinuation()};
    }
    return Completed{end()};
}

bool ContentProcessorStackItem::endsBefore(GrammarLine& line, const AbstractGrammarProcessorStackItem& next)
{
    Match match;
    return m_owner.matchEnd(line, end(), match) && next.start() >= match.capturedStart(0);
}

std::shared_ptr<const AbstractContinuationProcessorStackItem>
ContentProcessorStackItem::makeContinuation() const
{
    return std::make_shared<ContentContinuationProcessorStackItem>(
        std::static_pointer_cast<const BeginEndContinuationProcessorStackItem>(m_owner.makeContinuation()),
        scopes(), depth());
}

ProcessResult RootProcessorStackItem::process(GrammarLine& line)
{
    const ResolvedRules& rules = line.rules().topLevel();
    ProcessResult result;
    while (const auto next = nextItem(line, rules, end())) {
        const Outcome outcome = processNext(line, *next, result);
        if (outcome == Outcome::open)
            return result;
        if (outcome == Outcome::nothing) { // the rest of the line is the root's
            line.tokens().fillToken(0, line.length(), scopes());
            return Continued{line.length(), makeContinuation()};
        }
    }
    line.tokens().fillToken(0, line.length(), scopes());
    return Completed{end()};
}

std::shared_ptr<const AbstractContinuationProcessorStackItem> RootProcessorStackItem::makeContinuation() const
{
    return std::make_shared<RootContinuationProcessorStackItem>(scopes());
}

} // namespace Halvorin::TextMate
