#include "grammar/ruleprocessors.h"

#include "grammar/continuations.h"
#include "grammar/expandableprocessors.h"

namespace Halvorin::TextMate {

AbstractMatchRuleProcessorStackItem::AbstractMatchRuleProcessorStackItem(
    GrammarLine& line, RuleMatch match, const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent)
    : AbstractRuleProcessorStackItem(*match.rule, match.match.capturedStart(0), match.match.capturedEnd(0),
                                     line.scopesWith(parent->scopes(), match.rule->rule->name), parent),
      m_match(std::move(match.match))
{}

ProcessResult MatchProcessorStackItem::process(GrammarLine& line)
{
    line.addCaptures(match(), rule().rule->captures, scopes());
    line.tokens().fillToken(start(), length(), scopes());
    return Completed{match().capturedEnd(0)};
}

std::shared_ptr<const AbstractContinuationProcessorStackItem>
MatchProcessorStackItem::makeContinuation() const
{
    return std::make_shared<MatchContinuationProcessorStackItem>(rule(), scopes(), depth(),
                                                                 parent()->makeContinuation());
}

BeginEndProcessorStackItem::BeginEndProcessorStackItem(
    const BeginEndContinuationProcessorStackItem& continuation, int position)
    : AbstractMatchRuleProcessorStackItem(continuation.rule(), position, continuation.scopes(),
                                          continuation.depth()),
      m_continuation(continuation.shared_from_this()), m_beginCaptures(continuation.beginCaptures())
{}

ProcessResult BeginEndProcessorStackItem::process(GrammarLine& line)
{
    const GrammarRule& source = *rule().rule;
    line.addCaptures(match(), source.beginCaptures, scopes());
    line.addCaptures(match(), source.captures, scopes());
    if (rule().endSpeaksOfBegin()) {
        m_beginCaptures.append(QString()); // nothing speaks of the whole match
        for (int group = 1; group <= match().lastCapturedIndex(); ++group)
            m_beginCaptures.append(line.captured(match(), group));
    }
    return processContent(line);
}

ProcessResult BeginEndProcessorStackItem::processContent(GrammarLine& line)
{
    const auto self = std::static_pointer_cast<BeginEndProcessorStackItem>(shared_from_this());
    const auto content = std::make_shared<ContentProcessorStackItem>(line, self, end());
    const ProcessResult result = content->process(line);
    if (const auto* completed = std::get_if<Completed>(&result))
        return finish(line, completed->end);
    setEnd(line.length());
    return result; // it has the continuation of all that is around the innermost item, this one among it
}

bool BeginEndProcessorStackItem::matchEnd(GrammarLine& line, int position, Match& match)
{
    if (!m_end)
        m_end = rule().endSpeaksOfBegin() ? line.rules().endOf(rule(), m_beginCaptures) : rule().end;
    return line.match(*m_end, position, anchor(), match);
}

ProcessResult BeginEndProcessorStackItem::finish(GrammarLine& line, int position)
{
    setEnd(position);
    const GrammarRule& source = *rule().rule;
    TokenBuilder& tokens = line.tokens();
    Match endMatch;
    if (!matchEnd(line, position, endMatch)) {
        tokens.fillToken(anchor(), line.length() - anchor(), contentScopes(line));
        tokens.fillToken(start(), length(), scopes());
        setEnd(line.length());
        return Continued{line.length(), makeContinuation()};
    }
    tokens.fillToken(anchor(), endMatch.capturedStart(0) - anchor(), contentScopes(line));
    line.addCaptures(endMatch, source.captures, scopes());
    line.addCaptures(endMatch, source.endCaptures, scopes());
    setEnd(endMatch.capturedEnd(0));
    tokens.fillToken(start(), length(), scopes());
    return Completed{end()};
}

std::shared_ptr<const AbstractContinuationProcessorStackItem>
BeginEndProcessorStackItem::makeContinuation() const
{
    if (m_continuation)
        return m_continuation;
    return std::make_shared<BeginEndContinuationProcessorStackItem>(rule(), m_beginCaptures, scopes(),
                                                                    depth(), parent()->makeContinuation());
}

const QStringList& BeginEndProcessorStackItem::contentScopes(GrammarLine& line) const
{
    return line.scopesWith(scopes(), rule().rule->contentName);
}

} // namespace Halvorin::TextMate
