#include "statechart/text/engineeringnumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

namespace {

struct Scale
{
    char letter;
    double factor;
};

constexpr std::array<Scale, 9> scales{{
    {'a', 1e-18},
    {'f', 1e-15},
    {'p', 1e-12},
    {'n', 1e-9},
    {'u', 1e-6},
    {'m', 1e-3},
    {'k', 1e3},
    {'g', 1e9},
    {'t', 1e12},
}};

constexpr double mega = 1e6;

[[noreturn]] void fail()
{
    throw std::runtime_error("invalid format for number conversion");
}

char lowered(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// from_chars would take "inf" and "nan" too: a number starts with a digit or a point.
bool startsNumber(std::string_view text)
{
    if (!text.empty() && text.front() == '-')
        text.remove_prefix(1);
    return !text.empty() && ((text.front() >= '0' && text.front() <= '9') || text.front() == '.');
}

double factorOf(std::string_view suffix)
{
    const char letter = lowered(suffix.front());
    if (letter == 'm' && suffix.size() >= 3 && lowered(suffix[1]) == 'e' && lowered(suffix[2]) == 'g')
        return mega;
    const auto* scale =
        std::find_if(scales.begin(), scales.end(), [&](const Scale& row) { return row.letter == letter; });
    if (scale == scales.end())
        fail();
    return scale->factor;
}

} // namespace

double parseEngineeringNumber(std::string_view text)
{
    double number = 0.0;
    const char* const last = text.data() + text.size();
    if (!startsNumber(text))
        fail();
    const auto [end, error] = std::from_chars(text.data(), last, number, std::chars_format::general);
    if (error != std::errc())
        fail();
    if (end == last)
        return number;
    return number * factorOf(text.substr(static_cast<std::size_t>(end - text.data())));
}
