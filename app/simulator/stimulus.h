#ifndef STIMULUS_H
#define STIMULUS_H

#include "simulator/parametertable.h"
#include "simulator/simulationtime.h"
#include "statechart/json/jsonvalue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A pin that goes high at `start`, low again after `high`, and so on with every period.
struct StimulusClock
{
    std::string pin;
    Ticks start;
    Ticks period;
    Ticks high;
};

enum class TargetKind : std::uint8_t
{
    pin,
    bus,
    variable,
};

/// A value to drive an input to, or to find at a pin, a bus or a variable.
struct StimulusEntry
{
    std::string place; ///< in the file: "events[3]"
    Ticks time;
    TargetKind kind;
    std::string name;
    JsonValue value;
};

/// What is done to a device in a run, and what it is expected to do. It says nothing of whether the device
/// has the pins, buses and variables that it names.
struct Stimulus
{
    std::vector<StimulusClock> clocks;
    std::vector<StimulusEntry> events;
    std::vector<StimulusEntry> expectations;
    ParameterOverrides parameters;
    std::optional<Ticks> until;

    /// When the last event or expectation comes.
    std::optional<Ticks> lastTime() const;
};

/// Reads a stimulus: one JSON object with "clocks", "events", "expect", "parameters" and "until", each
/// optional. A time is a number of seconds, or a text with an engineering suffix.
/// @throws std::runtime_error that says what is wrong and where
Stimulus readStimulus(std::string_view text, TimeResolution resolution);

#endif
