#ifndef SIMULATIONLISTENER_H
#define SIMULATIONLISTENER_H

#include "simulator/inputchangeevent.h"
#include "simulator/simulationtime.h"
#include "statechart/devicevalues.h"
#include "statechart/runtime/abstractstate.h"

#include <cstdint>
#include <string>
#include <string_view>

class SimulatedDevice;
struct Signal;

/// Is told of what happens in a run while it happens: the way to traces, waveforms and coverage. Everything
/// refers to the device that start() names.
class SimulationListener
{
public:
    SimulationListener() = default;
    SimulationListener(const SimulationListener&) = delete;
    SimulationListener& operator=(const SimulationListener&) = delete;
    virtual ~SimulationListener() = default;

    /// A run begins, at time 0. The device has its parameters and the first levels of its pins and buses,
    /// and is in no state yet.
    virtual void start(const SimulatedDevice&) {}

    virtual void signalChanged(const Signal& /*after the change*/) {}
    virtual void variableChanged(const std::string& /*name*/, const DeviceVariableValue&) {}

    // What a device is told. The states are entered and left, and transitions taken, between this and
    // eventEnds().
    virtual void startBegins() {}
    virtual void changeBegins(const InputChangeEvent&) {}
    virtual void wakeBegins(std::uint64_t /*wake identifier*/, const Transition* /*null: it comes too late*/)
    {}
    virtual void eventEnds() {}

    virtual void stateEntered(const AbstractState&) {}
    /// Not told of what is left only because something around it is left.
    virtual void stateExited(const AbstractState&) {}
    virtual void transitionTaken(const Transition&) {}
    virtual void conditionTested(const Transition&, std::size_t /*index*/, bool /*holds*/) {}

    virtual void wakeArmed(std::uint64_t /*wake identifier*/, const Transition&, Ticks /*when it comes*/) {}
    virtual void printed(std::string_view /*text*/) {}

    /// Everything that is to happen at a time has happened.
    virtual void timeEnds(Ticks) {}

    /// The run is over, at its end or because something went wrong.
    virtual void finish(Ticks) {}
};

#endif
