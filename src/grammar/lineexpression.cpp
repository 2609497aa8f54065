#include "grammar/lineexpression.h"

#include "grammar/grammarexpression.h"

namespace Halvorin::TextMate {

int LineExpression::find(const SearchedLine& line, int from)
{
    const bool isKnown = m_line == line.number;
    if (isKnown && m_isGivenUp)
        return -1;
    if (isKnown && isRepeatable() && from >= m_from && (m_start < 0 || m_start >= from))
        return m_start;
    m_line = line.number;
    m_from = from;
    m_start = search(line, from);
    return m_start;
}

bool LineExpression::match(const SearchedLine& line, int from, Match& match)
{
    const int start = find(line, from);
    return start >= 0 && expression().match(line.text, isRepeatable() ? start : from, match);
}

const SearchExpression& LineExpression::expression()
{
    if (!m_expression) {
        if (!m_isReported)
            compileExpression(m_pattern);
        m_expression.emplace(m_pattern);
    }
    return *m_expression;
}

int LineExpression::search(const SearchedLine& line, int from)
{
    const int start = canMatch(line) ? expression().find(line.text, from) : SearchExpression::noMatch;
    m_isGivenUp = start == SearchExpression::limitReached;
    return m_isGivenUp ? -1 : start;
}

} // namespace Halvorin::TextMate
