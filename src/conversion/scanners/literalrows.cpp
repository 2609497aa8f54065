#include "conversion/scanners/literalrows.h"

namespace Halvorin::Text {

bool isDeeper(const SourceText& text, Line line, Span indent)
{
    return text.holds(line.start, line.end, indent) && line.start + indent.length() < line.end &&
           isHorizontalSpace(text[line.start + indent.length()]);
}

bool LiteralRows::take(Span indent)
{
    for (;; m_row = m_text.next(m_row)) {
        if (m_text.isAllHorizontalSpace(m_row)) {
            if (m_row.start != m_first.start) {
                m_blockEnd = m_row.start - 1;
                m_end = m_text.hasNext(m_row) ? m_row.end + 1 : m_row.end;
            }
        } else if (!isDeeper(m_text, m_row, indent)) {
            return m_blockEnd >= 0;
        }
        if (!m_text.hasNext(m_row)) {
            m_blockEnd = m_end = m_row.end;
            return true;
        }
    }
}

int LiteralRows::depthOfRefused(Span indent) const
{
    int depth = 0;
    while (depth < indent.length() && m_row.start + depth < m_row.end &&
           m_text[m_row.start + depth] == m_text[indent.start + depth])
        ++depth;
    const int behind = m_row.start + depth;
    return behind < m_row.end && isHorizontalSpace(m_text[behind]) ? depth : depth - 1;
}

} // namespace Halvorin::Text
