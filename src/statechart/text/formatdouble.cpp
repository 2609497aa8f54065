#include "statechart/text/formatdouble.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

struct Presentation
{
    char type; // 0: none given
    std::chars_format format;
    int precision; // when none is given; -1: the shortest text
};

constexpr std::array<Presentation, 5> presentations{{
    {0, std::chars_format::general, -1},
    {'a', std::chars_format::hex, -1},
    {'e', std::chars_format::scientific, 6},
    {'f', std::chars_format::fixed, 6},
    {'g', std::chars_format::general, 6},
}};

constexpr std::string_view upperTypes = "AEFG";

char lowered(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

char raised(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::string convert(double magnitude, const Presentation& presentation, bool typed, int precision)
{
    // The largest double has 309 digits in front of its point.
    std::string text(static_cast<std::size_t>(std::max(precision, 0)) + 350, '\0');
    char* const first = text.data();
    char* const last = first + text.size();
    const std::to_chars_result result =
        precision >= 0 ? std::to_chars(first, last, magnitude, presentation.format, precision)
        : typed        ? std::to_chars(first, last, magnitude, presentation.format)
                       : std::to_chars(first, last, magnitude);
    text.resize(static_cast<std::size_t>(result.ptr - first));
    return text;
}

std::size_t significantDigits(std::string_view mantissa)
{
    std::size_t digits = 0;
    for (const char character : mantissa) {
        if (character != '.' && (digits > 0 || character != '0'))
            ++digits;
    }
    // A zero counts its digits from the first.
    if (digits == 0)
        digits =
            mantissa.size() - static_cast<std::size_t>(std::count(mantissa.begin(), mantissa.end(), '.'));
    return digits;
}

/// '#': a point in any case, and for 'g' the zeros that it would leave off.
void putPoint(std::string& text, char type, int precision)
{
    const std::size_t exponent = std::min(text.find(type == 'a' ? 'p' : 'e'), text.size());
    std::string added;
    if (text.find('.') == std::string::npos)
        added += '.';
    if (type == 'g') {
        const auto wanted = static_cast<std::size_t>(std::max(precision, 1));
        const std::size_t present = significantDigits(std::string_view(text).substr(0, exponent));
        if (wanted > present)
            added.append(wanted - present, '0');
    }
    text.insert(exponent, added);
}

} // namespace

std::string doubleDigits(double magnitude, const FormatSpec& spec)
{
    const char type = lowered(spec.type);
    const Presentation& presentation =
        *std::find_if(presentations.begin(), presentations.end(),
                      [&](const Presentation& row) { return row.type == type; });
    const int precision = spec.precision >= 0 ? spec.precision : presentation.precision;
    std::string text = convert(magnitude, presentation, type != 0, precision);
    if (spec.alternate && std::isfinite(magnitude))
        putPoint(text, type, precision);
    if (spec.type != 0 && upperTypes.find(spec.type) != std::string_view::npos)
        std::transform(text.begin(), text.end(), text.begin(), raised);
    return text;
}
