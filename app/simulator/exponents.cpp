#include "simulator/exponents.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace {

/// Behind the end of the string that begins at `start`.
std::size_t endOfString(std::string_view json, std::size_t start)
{
    std::size_t end = start + 1;
    while (end < json.size() && json[end] != '"')
        end += json[end] == '\\' ? 2 : 1;
    return std::min(end + 1, json.size());
}

} // namespace

void refuseSplitExponents(std::string_view json)
{
    static constexpr std::string_view numberCharacters = "+-.0123456789eE";
    for (std::size_t position = 0; position < json.size();) {
        const char character = json[position];
        if (character == '"') {
            position = endOfString(json, position);
            continue;
        }
        if (character != '-' && (character < '0' || character > '9')) {
            ++position;
            continue;
        }
        const std::size_t end = std::min(json.find_first_not_of(numberCharacters, position), json.size());
        const std::string_view number = json.substr(position, end - position);
        if (number.find('.') == std::string_view::npos &&
            number.find_first_of("eE") != std::string_view::npos)
            throw std::runtime_error(
                "line " +
                std::to_string(
                    std::count(json.begin(), json.begin() + static_cast<std::ptrdiff_t>(position), '\n') +
                    1) +
                ": a number with an exponent needs a decimal point, or to be a text: " + std::string(number));
        position = end;
    }
}
