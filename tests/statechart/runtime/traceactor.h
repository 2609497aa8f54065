#ifndef TRACEACTOR_H
#define TRACEACTOR_H

#include "statechart/ddstatechartcompiler.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/definitions.h"
#include "statechart/devicefunctions/recordingactor.h"
#include "support/devices/namedevent.h"

#include <set>

using Trace = std::vector<std::string>;
using Chart = std::shared_ptr<const DigitalDeviceStateChart>;

class InputChange : public AbstractDigitalDeviceEvent
{
public:
    int type() const override { return inputChange; }
};

/// A run has gone on for longer than its test allows.
class EndlessRun : public std::runtime_error
{
public:
    EndlessRun() : std::runtime_error("more states are entered than the test allows") {}
};

/// Writes down which states are entered and left, as "enter x" and "exit x", among the calls.
class TraceActor : public RecordingActor
{
public:
    explicit TraceActor(Chart chart) : RecordingActor(std::move(chart)) {}

    bool traceTries = false; ///< "try t" for each transition that an event is held against
    int entriesLeft = 1000;
    std::set<std::string, std::less<>> highPins;

    Trace takeTrace() { return std::exchange(calls, {}); }

    Trace begin()
    {
        start();
        return takeTrace();
    }

    Trace send(std::string name)
    {
        dispatch(NamedEvent(std::move(name)));
        return takeTrace();
    }

    Trace change()
    {
        dispatch(InputChange());
        return takeTrace();
    }

    Trace wake(std::uint64_t identifier)
    {
        dispatch(WakeRequestedEvent(identifier));
        return takeTrace();
    }

    Trace active() const
    {
        Trace names;
        for (const auto& state : activeStates())
            names.push_back(state->identifier);
        return names;
    }

    bool isPinHigh(const std::string& pin) override
    {
        RecordingActor::isPinHigh(pin);
        return highPins.contains(pin);
    }

    bool eventMatches(const Transition& transition, const AbstractEvent& event) override
    {
        if (traceTries)
            calls.push_back("try " + transition.identifier);
        if (const auto* const named = dynamic_cast<const NamedEvent*>(&event))
            return transition.event == named->name;
        return AbstractDigitalDeviceActor::eventMatches(transition, event);
    }

    void stateEntered(const std::shared_ptr<AbstractState>& state) override
    {
        AbstractDigitalDeviceActor::stateEntered(state);
        calls.push_back("enter " + state->identifier);
        if (--entriesLeft < 0)
            throw EndlessRun();
    }

    void stateExited(const std::shared_ptr<AbstractState>& state) override
    {
        AbstractDigitalDeviceActor::stateExited(state);
        calls.push_back("exit " + state->identifier);
    }
};

inline Chart linkedText(std::string_view compiled)
{
    return linkDeviceStateChart(jsonOf(compiled).asObject(), deviceCodeBuilder());
}

inline JsonObject compiledDevice(std::string_view definition)
{
    return compileDeviceStateChart(jsonOf(definition).asObject(), deviceCodeBuilder());
}

/// A device without pins. @param states the members of "states"
inline std::string deviceOf(std::string_view start, std::string_view states)
{
    return std::string(R"({"outputs": {}, "outputDelay": 1, "start": ")")
        .append(start)
        .append(R"(", "states": {)")
        .append(states)
        .append("}}");
}

inline Chart linkedDevice(std::string_view start, std::string_view states)
{
    return linkDeviceStateChart(compiledDevice(deviceOf(start, states)), deviceCodeBuilder());
}

#endif
