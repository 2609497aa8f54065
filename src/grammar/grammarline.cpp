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

/// Puts what "begin" captured into "end", as it stands, in ascending order: \1 within \10 first. False, and
/// the pattern as it was then, when it gets too long: what is put in may speak of later groups many times.
bool insertCaptures(QString& pattern, const QStringList& captures)
{
    constexpr qint64 maximum = 0x10000;
    for (int group = 1; group < captures.size(); ++group) {
        const QString reference = QLatin1Char('\\') + QString::number(group);
        const QString& text = captures.at(group);
        if (pattern.size() + qint64(pattern.count(reference)) * text.size() > maximum)
            return false;
        pattern.replace(reference, text);
    }
    return true;
}

} // namespace

std::vector<const ResolvedRule*>& LineMemory::candidates(const ResolvedRules& list, const SearchedLine& line)
{
    if (list.number >= m_candidates.size()) // lists are made when they are first tried
        m_candidates.resize(list.number + 1);
    Candidates& candidates = m_candidates[list.number];
    if (candidates.line != line.number) {
        candidates.line = line.number;
        candidates.rules.clear();
        for (const ResolvedRule* rule : list.rules) {
            if (!rule->start.fixed || rule->start.fixed->canMatch(line))
                candidates.rules.push_back(rule);
        }
    }
    return candidates.rules;
}

GrammarLine::GrammarLine(const QString& text, RuleSearch& search, LineMemory& memory)
    : m_line{wholeCharacters(text), UnitSet(text), memory.nextNumber()}, m_search(search), m_memory(memory),
      m_tokens(text.size())
{
    m_search.scopeLists().bound();
}

QString GrammarLine::captured(const Match& match, int group) const
{
    return match.capturedStart(group) < 0
               ? QString()
               : m_line.text.mid(match.capturedStart(group), match.capturedLength(group));
}

bool GrammarLine::match(const RuleExpression& expression, int position, int anchor,
                        const QStringList& beginCaptures, Match& match)
{
    if (expression.fixed)
        return expression.fixed->match(m_line, position, match);
    if (expression.source == nullptr || expression.source->isEmpty())
        return false;
    const std::optional<QString> text = textAt(expression, position, anchor, beginCaptures);
    return text && m_search.lateExpression(*text).match(m_line, position, match);
}

/// The final text of an expression that depends on where it is tried; none where it cannot match.
std::optional<QString> GrammarLine::textAt(const RuleExpression& expression, int position, int anchor,
                                           const QStringList& beginCaptures)
{
    QString pattern = expression.source->pattern();
    if (expression.speaksOfBegin && !insertCaptures(pattern, beginCaptures)) {
        m_search.reportOnce("an expression is too long with what was captured");
        return std::nullopt;
    }
    if (!expression.source->hasAnchorG())
        return pattern;
    if (pattern == QLatin1String("\\G"))
        return position == anchor ? std::optional(pattern) : std::nullopt;
    if (pattern == QLatin1String("(?!\\G)"))
        return position != anchor ? std::optional(QStringLiteral("(?=.*)")) : std::nullopt;
    return pattern;
}

std::optional<RuleMatch> GrammarLine::bestMatch(const ResolvedRules& list, int position, int anchor,
                                                bool mayOpen)
{
    if (position >= length())
        return std::nullopt;
    const ResolvedRule* best = nullptr;
    int bestStart = length() + 1;
    Match bestMatch;
    std::vector<const ResolvedRule*>& rules = m_memory.candidates(list, m_line);
    auto kept = rules.begin();
    auto rule = rules.begin();
    while (rule != rules.end() && bestStart != position) { // nothing can be earlier
        const RuleExpression& expression = (*rule)->start;
        int start = -1;
        Match late;
        if (expression.fixed)
            start = expression.fixed->find(m_line, position);
        else if (match(expression, position, anchor, {}, late))
            start = late.capturedStart(0);
        if (start >= 0 && start < bestStart && (mayOpen || !(*rule)->isBeginEnd())) {
            best = *rule;
            bestStart = start;
            bestMatch = std::move(late);
        }
        // positions only grow in a line: what is not found now never is
        if (start >= 0 || !expression.fixed || !expression.fixed->isRepeatable())
            *kept++ = *rule;
        ++rule;
    }
    rules.erase(kept, rule);
    if (best == nullptr)
        return std::nullopt;
    if (best->start.fixed && !match(best->start, position, anchor, {}, bestMatch))
        return std::nullopt;
    return RuleMatch{best, std::move(bestMatch)};
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
