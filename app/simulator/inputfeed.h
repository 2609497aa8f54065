#ifndef INPUTFEED_H
#define INPUTFEED_H

#include "simulator/signaltable.h"
#include "simulator/stimulus.h"

#include <limits>
#include <vector>

/// Levels for an input.
struct InputDrive
{
    std::size_t signal; ///< index of the pin or bus
    std::uint64_t lines;
};

/// What drives the inputs of a device, in the order of time: at one time the clocks in their order, then the
/// events in theirs. A clock takes no memory for its edges.
class InputFeed
{
public:
    /// @throws std::runtime_error for an input that the device does not have, and for a value that does not
    /// fit, with its place in the stimulus
    InputFeed(const Stimulus& stimulus, const SignalTable& signals);

    static constexpr Ticks never = std::numeric_limits<Ticks>::max();

    /// When the next drives come, or never.
    Ticks nextTime() const;

    /// Moves what comes at the next time to the end of a list.
    void take(std::vector<InputDrive>& drives);

private:
    struct Clock
    {
        std::size_t signal;
        Ticks high; // for how long it is
        Ticks low;
        Ticks nextEdge;
        bool isHigh = false;
    };

    struct Event
    {
        Ticks time;
        InputDrive drive;
    };

    static void advance(Clock& clock);

    std::vector<Clock> m_clocks;
    std::vector<Event> m_events;
    std::size_t m_next = 0; // in m_events
};

#endif
