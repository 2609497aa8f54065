#ifndef LINEMAP_H
#define LINEMAP_H

#include <cstddef>
#include <string_view>
#include <vector>

/// The lines of a text that outlives the map. LF, CR and CR LF each end one line.
class LineMap
{
public:
    explicit LineMap(std::string_view text);

    struct Place
    {
        std::size_t line;   ///< from 1
        std::size_t column; ///< from 1, in bytes
    };

    Place placeOf(std::size_t offset) const;

    /// A line, from 1, without its end.
    std::string_view line(std::size_t number) const;

private:
    std::string_view m_text;
    std::vector<std::size_t> m_starts;
};

#endif
