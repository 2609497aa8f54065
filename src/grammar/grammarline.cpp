#include "grammar/grammarline.h"

#include "unicode/wholecharacters.h"

namespace Halvorin::TextMate {

std::vector<const ResolvedRule*>& LineMemory::candidates(const ResolvedRules& list, const SearchedLine& line)
{
    if (list.number >= m_candidates.size()) // lists are made when they are first tried
        m_candidates.resize(list.number + 1);
    Candidates& candidates = m_candidates[list.number];
    if (candidates.line != line.number) {
        candidates.line = line.number;
        candidates.rules.clear();
        for (const ResolvedRule* rule : list.rules) {
            if (rule->start.expression && rule->start.expression->canMatch(line))
                candidates.rules.push_back(rule);
        }
    }
    return candidates.rules;
}

GrammarLine::GrammarLine(const QString& text, RuleSearch& search, LineMemory& memory)
    : m_line{Text::wholeCharacters(text), UnitSet(text), memory.nextNumber()}, m_search(search),
      m_memory(memory), m_tokens(text.size())
{
    m_search.scopeLists().bound();
}

QString GrammarLine::captured(const Match& match, int group) const
{
    return match.capturedStart(group) < 0
               ? QString()
               : m_line.text.mid(match.capturedStart(group), match.capturedLength(group));
}

bool GrammarLine::match(const PreparedExpression& expression, int position, int anchor, Match& match)
{
    return expression.isAllowed(position, anchor) && expression.expression->match(m_line, position, match);
}

std::optional<RuleMatch> GrammarLine::bestMatch(const ResolvedRules& list, int position, int anchor,
                                                bool mayOpen)
{
    if (position >= length())
        return std::nullopt;
    const ResolvedRule* best = nullptr;
    int bestStart = length() + 1;
    std::vector<const ResolvedRule*>& rules = m_memory.candidates(list, m_line);
    auto kept = rules.begin();
    auto rule = rules.begin();
    while (rule != rules.end() && bestStart != position) { // nothing can be earlier
        const PreparedExpression& start = (*rule)->start;
        const bool isAllowed = start.isAllowed(position, anchor);
        const int found = isAllowed ? start.expression->find(m_line, position) : -1;
        if (found >= 0 && found < bestStart && (mayOpen || !(*rule)->isBeginEnd())) {
            best = *rule;
            bestStart = found;
        }
        // positions only grow in a line: what is not found now never is
        if (found >= 0 || !isAllowed || !start.expression->isRepeatable())
            *kept++ = *rule;
        ++rule;
    }
    rules.erase(kept, rule);
    RuleMatch result{best, Match()};
    if (best == nullptr || !match(best->start, position, anchor, result.match))
        return std::nullopt;
    return result;
}

void GrammarLine::addCaptures(const Match& match, const GrammarCaptures& captures, const QStringList& scopes)
{
    for (const auto& [group, capture] : captures) {
        if (group < 0 || group > match.lastCapturedIndex() || match.capturedStart(group) < 0)
            continue;
        m_tokens.addToken(match.capturedStart(group), match.capturedLength(group),
                          capture.name.isEmpty() ? scopes : m_search.scopeLists().with(scopes, capture.name));
    }
}

} // namespace Halvorin::TextMate
