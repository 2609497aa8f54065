#include "conversion/romannumeral.h"

#include <array>

namespace Halvorin::Text {

namespace {

/// The letters of a decimal place: for one, for five and for ten of it.
struct Place
{
    int value;
    char one;
    char five;
    char ten;
};

constexpr std::array<Place, 4> places = {{
    {1000, 'M', '\0', '\0'},
    {100, 'C', 'D', 'M'},
    {10, 'X', 'L', 'C'},
    {1, 'I', 'V', 'X'},
}};

} // namespace

int romanValue(const QStringRef& numeral)
{
    int at = 0;
    const auto take = [&](char letter) {
        if (letter == '\0' || at == numeral.size() || numeral.at(at).toUpper() != QLatin1Char(letter))
            return false;
        ++at;
        return true;
    };
    int sum = 0;
    for (const Place& place : places) {
        const bool hasFive = take(place.five);
        int digit = hasFive ? 5 : 0;
        int ones = 0;
        while (ones < 3 && take(place.one))
            ++ones;
        digit += ones;
        if (!hasFive && ones == 1) {
            if (take(place.five))
                digit = 4;
            else if (take(place.ten))
                digit = 9;
        }
        sum += digit * place.value;
    }
    return at == numeral.size() ? sum : 0;
}

} // namespace Halvorin::Text
