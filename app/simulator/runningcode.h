#ifndef RUNNINGCODE_H
#define RUNNINGCODE_H

#include "simulator/simulationtime.h"
#include "statechart/runtime/abstractactorobserver.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// A text of limited length that takes no memory but its own, so that a signal handler may write it. What
/// does not fit is left out, and control characters come out as "?".
class FixedText
{
public:
    FixedText& operator<<(std::string_view text);
    FixedText& operator<<(std::size_t number);

    std::string_view view() const { return {m_text.data(), m_size}; }

private:
    std::array<char, 2048> m_text;
    std::size_t m_size = 0;
};

/// The piece of a device's code that runs, and when: what an error message needs. It is kept up to date from
/// step to step, since a fault of the processor leaves no time to look for it.
struct RunningCode
{
    Ticks time = 0;
    TimeResolution resolution;
    ActorCode code{}; ///< owned by neither a state nor a transition before the first

    /// How many pieces of code have begun; a watch sees by it whether the device goes on.
    std::atomic<std::uint64_t> count = 0;

    /// How many events the device was told of.
    std::atomic<std::uint64_t> eventCount = 0;

    /// Whether an event is being handled.
    std::atomic<bool> isRunning = false;

    /// Whether it is known which code it is.
    bool isKnown() const { return code.state != nullptr || code.transition != nullptr; }

    /// Writes "at 10n".
    void writeTime(FixedText& text) const;

    /// Writes "in entry action 1 of state 'idle'", if it is known.
    void writePlace(FixedText& text) const;
};

#endif
