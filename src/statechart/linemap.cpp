#include "statechart/linemap.h"

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
    const std::string_view rest = m_text.substr(m_starts[number - 1]);
    return rest.substr(0, rest.find_first_of("\r\n"));
}
