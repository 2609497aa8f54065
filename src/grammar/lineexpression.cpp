#include "grammar/lineexpression.h"

#include "grammar/grammarexpression.h"

namespace Halvorin::TextMate {

int LineExpression::find(const SearchedLine& line, int from)
{
    const bool isKnown = m_line == line.number;
    if (isKnown && m_hit.isGivenUp)
        return -1;
    if (isKnown && isRepeatable() && from >= m_from && (m_hit.start < 0 || m_hit.attempt >= from))
        return m_hit.start;
    m_line = line.number;
    m_from = from;
    m_hit = canMatch(line) ? expression().find(line.text, from) : SearchExpression::Hit();
    return m_hit.start;
}

bool LineExpression::match(const SearchedLine& line, int from, Match& match)
{
    return find(line, from) >= 0 &&
           expression().match(line.text, isRepeatable() ? m_hit.attempt : from, match);
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

} // namespace Halvorin::TextMate
