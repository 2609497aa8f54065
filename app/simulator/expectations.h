#ifndef EXPECTATIONS_H
#define EXPECTATIONS_H

#include "simulator/simulateddevice.h"
#include "simulator/stimulus.h"

#include <vector>

/// An expectation that was not met.
struct FailedExpectation
{
    Ticks time;
    std::string name;
    std::string actual;
    std::string expected;
};

/// What a device is expected to do, in the order of time. A value is looked at when everything of its time
/// has happened.
class Expectations
{
public:
    /// @throws std::runtime_error for what the device does not have, and for a value that it cannot have,
    /// with the place in the stimulus
    Expectations(const Stimulus& stimulus, const SimulatedDevice& device);

    /// Looks at those up to a time, none twice; to be called before anything later happens.
    void check(Ticks upTo, const SimulatedDevice& device, std::vector<FailedExpectation>& failed);

    /// How many have not been looked at.
    std::size_t countLeft() const { return m_entries.size() - m_next; }

private:
    struct Entry
    {
        Ticks time;
        TargetKind kind;
        std::string name;
        std::size_t signal;           // of a pin or a bus
        std::uint64_t lines;          // of a pin or a bus
        DeviceVariableValue variable; // of a variable
    };

    std::vector<Entry> m_entries;
    std::size_t m_next = 0;
};

#endif
