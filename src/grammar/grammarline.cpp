#include "grammar/grammarline.h"

namespace Halvorin::TextMate {

namespace {

/// The text without halves of surrogate pairs, on which no expression would match; every place stays as it
/// is.
QString wholeCharacters(QString text)
{
    for (int index = 0; index < text.size(); ++index) {
        const QChar unit = text.at(index);
        if (!unit.isSurrogate())
            continue;
        if (unit.isHighSurrogate() && index + 1 < text.size() && text.at(index + 1).isLowSurrogate())
            ++index;
        else
            text[index] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

} // namespace

int SearchMemory::find(const RuleExpression& expression, const QString& line, int from)
{
    const SearchExpression& compiled = *expression.compiled;
    if (!compiled.isRepeatable())
        return compiled.find(line, from);
    if (expression.number >= m_hits.size()) // rules are resolved when they are first tried
        m_hits.resize(expression.number + 1);
    Hit& hit = m_hits[expression.number];
    if (hit.line != m_line || from < hit.from || (hit.start >= 0 && hit.start < from))
        hit = {m_line, from, compiled.canMatch(m_units) ? compiled.find(line, from) : -1};
    return hit.start;
}

std::vector<const ResolvedRule*>& SearchMemory::candidates(const ResolvedRules& list)
{
    if (list.number >= m_candidates.size())
        m_candidates.resize(list.number + 1);
    Candidates& candidates = m_candidates[list.number];
    if (candidates.line != m_line) {
        candidates.line = m_line;
        candidates.rules.clear();
        for (const ResolvedRule* rule : list.rules) {
            if (!rule->start.compiled || rule->start.compiled->canMatch(m_units))
                candidates.rules.push_back(rule);
        }
    }
    return candidates.rules;
}

GrammarLine::GrammarLine(const QString& text, RuleSearch& search, SearchMemory& memory)
    : m_text(wholeCharacters(text)), m_search(search), m_memory(memory), m_tokens(text.size())
{
    m_memory.startLine(m_text);
}

QString GrammarLine::captured(const Match& match, int group) const
{
    return match.capturedStart(group) < 0
               ? QString()
               : m_text.mid(match.capturedStart(group), match.capturedLength(group));
}

bool GrammarLine::match(const RuleExpression& expression, int position, int anchor,
                        const QStringList& beginCaptures, Match& match)
{
    if (expression.source == nullptr || expression.source->isEmpty())
        return false;
    if (!expression.compiled)
        return matchText(*expression.source, position, anchor, beginCaptures, match);
    const int start = m_memory.find(expression, m_text, position);
    if (start < 0)
        return false;
    return expression.compiled->match(m_text, expression.compiled->isRepeatable() ? start : position, match);
}

bool GrammarLine::matchText(const AbstractGrammarExpression& expression, int position, int anchor,
                            const QStringList& beginCaptures, Match& match)
{
    QString pattern = expression.pattern();
    if (expression.hasBackReference()) {
        for (int group = 1; group < beginCaptures.size(); ++group) // in ascending order: \1 within \10 first
            pattern.replace(QLatin1Char('\\') + QString::number(group), beginCaptures.at(group));
    }
    if (expression.hasAnchorG() && pattern == QLatin1String("\\G") && position != anchor)
        return false;
    if (expression.hasAnchorG() && pattern == QLatin1String("(?!\\G)")) {
        if (position == anchor)
            return false;
        pattern = QStringLiteral("(?=.*)");
    }
    return m_search.lateExpression(pattern).match(m_text, position, match);
}

std::optional<RuleMatch> GrammarLine::bestMatch(const ResolvedRules& list, int position, int anchor)
{
    if (position >= length())
        return std::nullopt;
    const ResolvedRule* best = nullptr;
    int bestStart = length() + 1;
    Match bestMatch;
    std::vector<const ResolvedRule*>& rules = m_memory.candidates(list);
    auto kept = rules.begin();
    auto rule = rules.begin();
    while (rule != rules.end() && bestStart != position) { // nothing can be earlier
        const RuleExpression& expression = (*rule)->start;
        int start = -1;
        Match late;
        if (expression.compiled)
            start = m_memory.find(expression, m_text, position);
        else if (match(expression, position, anchor, {}, late))
            start = late.capturedStart(0);
        if (start >= 0 && start < bestStart) {
            best = *rule;
            bestStart = start;
            bestMatch = std::move(late);
        }
        // positions only grow in a line: what is not found now never is
        if (start >= 0 || !expression.compiled || !expression.compiled->isRepeatable())
            *kept++ = *rule;
        ++rule;
    }
    rules.erase(kept, rule);
    if (best == nullptr)
        return std::nullopt;
    if (best->start.compiled && !match(best->start, position, anchor, {}, bestMatch))
        return std::nullopt;
    return RuleMatch{best, std::move(bestMatch)};
}

void GrammarLine::addCaptures(const Match& match, const GrammarCaptures& captures, const QStringList& scopes,
                              ScopeLists& lists)
{
    for (const auto& [group, capture] : captures) {
        if (group < 0 || group > match.lastCapturedIndex() || match.capturedStart(group) < 0)
            continue;
        m_tokens.addToken(match.capturedStart(group), match.capturedLength(group),
                          capture.name.isEmpty() ? scopes : lists.with(scopes, capture.name));
    }
}

} // namespace Halvorin::TextMate
