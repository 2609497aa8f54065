#ifndef SIMULATEDDEVICE_H
#define SIMULATEDDEVICE_H

#include "simulator/eventqueue.h"
#include "simulator/parametertable.h"
#include "simulator/runningcode.h"
#include "simulator/signaltable.h"
#include "simulator/simulationlistener.h"
#include "statechart/digitaldeviceactor.h"

#include <span>

/// A device in a simulation: gives the operations of a device's code their meaning. What its code asks for
/// goes into a queue; the simulation gives it back when it is due.
///
/// An operation on what the device does not have, a read of another type, and a time or delay that is
/// negative or no number raise std::runtime_error, which leaves through applyInput() and the like.
class SimulatedDevice : public AbstractDigitalDeviceActor, private AbstractActorObserver
{
public:
    /// @param listeners must outlive the device
    SimulatedDevice(std::shared_ptr<const DigitalDeviceStateChart> chart, const DeviceOrder& order,
                    const ParameterOverrides& overrides, TimeResolution resolution,
                    std::span<SimulationListener* const> listeners);

    /// The time that operations go by.
    Ticks now() const { return m_now; }
    void setNow(Ticks now);
    TimeResolution resolution() const { return m_resolution; }

    const DeviceOrder& order() const { return m_order; }
    const SignalTable& signals() const { return m_signals; }

    /// The variables as they are now.
    const std::unordered_map<std::string, DeviceVariableValue>& variables() const
    {
        return deviceVariables();
    }

    /// The code that runs, or ran last.
    const RunningCode& runningCode() const { return m_runningCode; }

    EventQueue& queue() { return m_queue; }
    const EventQueue& queue() const { return m_queue; }

    // What makes the device go on.
    void startRun();
    /// Tells whether the lines were others before.
    bool setLines(std::size_t signal, std::uint64_t mask, std::uint64_t lines);
    void change(const InputChangeEvent& event);
    void wake(std::uint64_t wakeIdentifier);

    // What the device's code calls.
    void print(const std::string& text) override;
    void setVariable(const std::string& name, const DeviceVariableValue& value) override;
    std::int32_t getVariable_int(const std::string& name) override;
    double getVariable_double(const std::string& name) override;
    std::string getVariable_string(const std::string& name) override;
    bool getVariable_bool(const std::string& name) override;
    std::int64_t getVariable_int64_t(const std::string& name) override;
    std::uint64_t getVariable_uint64_t(const std::string& name) override;
    std::int64_t getParameter_int64_t(const std::string& name) override;
    std::uint64_t getParameter_uint64_t(const std::string& name) override;
    double getParameter_double(const std::string& name) override;
    std::int64_t readBus_int64_t(const std::string& bus) override;
    std::uint64_t readBus_uint64_t(const std::string& bus) override;
    void writeBus(const std::string& bus, const BusValue& value, double delay) override;
    bool isPinHigh(const std::string& pin) override;
    bool isPinLow(const std::string& pin) override;
    bool isBusPinHigh(const std::string& bus, std::int32_t index) override;
    bool isBusPinLow(const std::string& bus, std::int32_t index) override;
    double simulationTime() override;
    bool isEdgeEvent(const std::string& pin) override;
    bool isPositiveEdge(const std::string& pin) override;
    bool isNegativeEdge(const std::string& pin) override;
    void setBusPinHigh(const std::string& bus, std::int32_t index, double delay) override;
    void setBusPinLow(const std::string& bus, std::int32_t index, double delay) override;
    void setPinHigh(const std::string& pin, double delay) override;
    void setPinLow(const std::string& pin, double delay) override;
    void scheduleWake(const double& time, std::uint64_t wakeIdentifier) override;

    void stateEntered(const std::shared_ptr<AbstractState>& state) override;
    void stateExited(const std::shared_ptr<AbstractState>& state) override;

    /// The transitions that one event may take. Far above what an honest chart does, and far below what the
    /// stack has room for.
    static constexpr int maximumTransitions = 10'000;

    /// The states that one event may enter; each may leave a transition that waits to be taken.
    static constexpr int maximumEntries = 1'000'000;

    /// The changes of outputs and the wakes that may lie in the future.
    static constexpr std::size_t maximumWaiting = 10'000'000;

private:
    void transitionTaken(const Transition& transition) override;
    void codeBegins(const ActorCode& code) override;
    void conditionTested(const Transition& transition, std::size_t index, bool holds) override;

    const Signal& readableBus(const std::string& name, BusDataType type) const;
    bool isLineHigh(const std::string& bus, std::int32_t index) const;
    void setLine(const std::string& bus, std::int32_t index, bool isHigh, double delay);
    void setPin(const std::string& pin, bool isHigh, double delay);
    void schedule(const OutputChange& change, double delay);
    const InputChangeEvent* edgeOf(const std::string& pin) const;
    void beginEvent();
    void endEvent();
    [[noreturn]] void giveUp(const std::string& what);

    /// Where there is no end of changes and wakes, memory would have one.
    void requireRoomInQueue() const;

    template <class Operation, class... Arguments>
    void tell(Operation operation, const Arguments&... arguments) const
    {
        for (SimulationListener* const listener : m_listeners)
            (listener->*operation)(arguments...);
    }

    const DeviceOrder& m_order;
    TimeResolution m_resolution;
    std::span<SimulationListener* const> m_listeners;
    ParameterTable m_parameters;
    SignalTable m_signals;
    EventQueue m_queue;
    RunningCode m_runningCode;
    Ticks m_now = 0;
    const InputChangeEvent* m_change = nullptr; // the one that is being handled
    int m_transitionsTaken = 0;                 // in the event that is being handled
    int m_statesEntered = 0;                    // likewise
};

#endif
