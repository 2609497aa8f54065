#ifndef SIMULATIONTIME_H
#define SIMULATIONTIME_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A time of a simulation, or a span of it, in ticks from the start. Ticks are whole numbers, so that what
/// happens at one time is at one time whatever sums led there.
using Ticks = std::int64_t;

/// How long a tick is: a power of ten, from a femtosecond to a second.
class TimeResolution
{
public:
    /// Femtoseconds: a run can then last some 9223 seconds.
    TimeResolution() = default;

    /// The text is a time such as "1n". @throws std::runtime_error when that is none of the powers.
    static TimeResolution fromText(std::string_view text);

    /// The power of ten, from -15 to 0.
    int exponent() const { return m_exponent; }

    /// The nearest tick. @throws std::runtime_error for what is negative, no number, or too long for the
    /// resolution; `what` is how the message calls it.
    Ticks ticks(double seconds, std::string_view what) const;

    double seconds(Ticks time) const;

    friend bool operator==(const TimeResolution&, const TimeResolution&) = default;

private:
    explicit TimeResolution(int exponent);

    int m_exponent = -15;
    double m_ticksPerSecond = 1e15;
};

/// Room for any text that writeTime() writes.
inline constexpr std::size_t timeTextSize = 48;

/// Writes a time exactly, as a number with an engineering suffix: "12.5u". Takes no memory, so that a signal
/// handler may call it. @returns the length
std::size_t writeTime(Ticks time, TimeResolution resolution, char* text);

std::string timeText(Ticks time, TimeResolution resolution);

#endif
