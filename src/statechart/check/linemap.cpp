#include "statechart/check/linemap.h"

#include <algorithm>

LineMap::LineMap(std::string_view text) : m_text(text), m_starts{0}
{
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        const bool endsInNext = text[offset] == '\r' && offset + 1 < text.size() && text[offset + 1] == '\n';
        if ((text[offset] == '\n' || text[offset] == '\r') && !endsInNext)
            m_starts.push_back(offset + 1);
    }
}

LineMap::Place LineMap::placeOf(std::size_t offset) const
{
    const auto behind = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
    const auto line = static_cast<std::size_t>(behind - m_starts.begin());
    return {line, offset - m_starts[line - 1] + 1};
}

std::string_view LineMap::line(std::size_t number) const
{
    const std::size_t start = m_starts[number - 1];
    if (number == m_starts.size())
        return m_text.substr(start);
    std::size_t end = m_starts[number] - 1;
    if (m_text[end] == '\n' && end > start && m_text[end - 1] == '\r')
        --end;
    return m_text.substr(start, end - start);
}
