#include "simulator/simulationtime.h"

#include "statechart/text/engineeringnumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace {

constexpr int finest = -15;
constexpr std::string_view suffixes = "fpnum"; // 1e-15, 1e-12 and so on

/// 0 for what is no number.
double secondsOf(std::string_view text)
{
    try {
        return parseEngineeringNumber(text);
    } catch (const std::runtime_error&) {
        return 0;
    }
}

} // namespace

TimeResolution::TimeResolution(int exponent)
    : m_exponent(exponent), m_ticksPerSecond(std::round(std::pow(10.0, -exponent)))
{}

TimeResolution TimeResolution::fromText(std::string_view text)
{
    const double seconds = secondsOf(text);
    for (int exponent = finest; exponent <= 0; ++exponent) {
        const TimeResolution resolution(exponent);
        if (std::abs(seconds * resolution.m_ticksPerSecond - 1) < 1e-9)
            return resolution;
    }
    throw std::runtime_error("the resolution must be a power of ten from 1f to 1 second, not '" +
                             std::string(text) + "'");
}

Ticks TimeResolution::ticks(double seconds, std::string_view what) const
{
    constexpr double limit = 9.2e18; // below the largest number of ticks
    if (std::isnan(seconds))
        throw std::runtime_error(std::string(what) + " is no number");
    if (seconds < 0)
        throw std::runtime_error(std::string(what) + " is negative");
    const double count = std::round(seconds * m_ticksPerSecond);
    if (!(count < limit))
        throw std::runtime_error(std::string(what) + " is too long for ticks of " + timeText(1, *this) +
                                 " (--resolution gives longer ones)");
    return static_cast<Ticks>(count);
}

double TimeResolution::seconds(Ticks time) const
{
    return static_cast<double>(time) / m_ticksPerSecond;
}

std::size_t writeTime(Ticks time, TimeResolution resolution, char* text)
{
    if (time == 0) {
        *text = '0';
        return 1;
    }
    // The digits, without the zeros at the end.
    std::array<char, 24> digits;
    int count = 0;
    int exponent = resolution.exponent();
    while (time % 10 == 0) {
        time /= 10;
        ++exponent;
    }
    for (; time != 0; time /= 10)
        digits[static_cast<std::size_t>(count++)] = static_cast<char>('0' + time % 10);
    std::reverse(digits.begin(), digits.begin() + count);

    // The scale leaves one to three digits before the point, or all of them from a second on.
    const int magnitude = exponent + count - 1;
    const int scale = magnitude >= 0 ? 0 : (magnitude - 2) / 3 * 3;
    const int before = magnitude - scale + 1;
    char* end = text;
    for (int index = 0; index < std::max(before, count); ++index) {
        if (index == before)
            *end++ = '.';
        *end++ = index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }
    if (scale < 0)
        *end++ = suffixes[static_cast<std::size_t>((scale - finest) / 3)];
    return static_cast<std::size_t>(end - text);
}

std::string timeText(Ticks time, TimeResolution resolution)
{
    std::array<char, timeTextSize> text;
    return {text.data(), writeTime(time, resolution, text.data())};
}
