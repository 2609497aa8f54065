#ifndef DIGITALDEVICEACTOR_H
#define DIGITALDEVICEACTOR_H

#include "statechart/deviceevents.h"
#include "statechart/devicevalues.h"
#include "statechart/digitaldevicestatechart.h"
#include "statechart/runtime/abstractactor.h"

/// A running device, as its actions see it. The functions of a device call the pure operations; a simulator
/// derives from this class and gives them their meaning. Names are identifiers of the definition; a name that
/// the device does not have, and a read of another type, are the simulator's to refuse. Times and delays
/// are in seconds.
///
/// When a state that has transitions with a wake time is entered, a wake is scheduled for each at the end of
/// the dispatch; the simulator answers with a WakeRequestedEvent of the same identifier. It may come when the
/// state has been left: nothing happens then.
class HALVWIDGETS_EXPORT AbstractDigitalDeviceActor : public AbstractActor
{
public:
    /// @param chart may be null where code is run without a chart: start() and chart() are then not there
    explicit AbstractDigitalDeviceActor(std::shared_ptr<const DigitalDeviceStateChart> chart = nullptr);
    ~AbstractDigitalDeviceActor() override;

    const DigitalDeviceStateChart& chart() const override;

    /// An input change triggers "change", a wake the transition that it was scheduled for.
    bool eventMatches(const Transition& transition, const AbstractEvent& event) override;

    void dispatch(const AbstractEvent& event) override;
    void start() override;

    // An override of these two calls them first.
    void stateEntered(const std::shared_ptr<AbstractState>& state) override;
    void stateExited(const std::shared_ptr<AbstractState>& state) override;

    virtual void setVariable(const std::string& name, const DeviceVariableValue& value) = 0;

    /// The variable must hold this type.
    virtual std::int32_t getVariable_int(const std::string& name) = 0;
    virtual double getVariable_double(const std::string& name) = 0;
    virtual std::string getVariable_string(const std::string& name) = 0;
    virtual bool getVariable_bool(const std::string& name) = 0;
    virtual std::int64_t getVariable_int64_t(const std::string& name) = 0;
    virtual std::uint64_t getVariable_uint64_t(const std::string& name) = 0;

    virtual std::int64_t getParameter_int64_t(const std::string& name) = 0;
    virtual std::uint64_t getParameter_uint64_t(const std::string& name) = 0;
    virtual double getParameter_double(const std::string& name) = 0;

    virtual std::int64_t readBus_int64_t(const std::string& bus) = 0;
    virtual std::uint64_t readBus_uint64_t(const std::string& bus) = 0;

    /// Writes after a delay; 0 is at once.
    virtual void writeBus(const std::string& bus, const BusValue& value, double delay) = 0;

    virtual bool isPinHigh(const std::string& pin) = 0;
    virtual bool isPinLow(const std::string& pin) = 0;
    virtual bool isBusPinHigh(const std::string& bus, std::int32_t index) = 0;
    virtual bool isBusPinLow(const std::string& bus, std::int32_t index) = 0;

    virtual double simulationTime() = 0;

    /// Whether the event being handled is an edge on this pin; a rising, a falling one.
    virtual bool isEdgeEvent(const std::string& pin) = 0;
    virtual bool isPositiveEdge(const std::string& pin) = 0;
    virtual bool isNegativeEdge(const std::string& pin) = 0;

    virtual void setBusPinHigh(const std::string& bus, std::int32_t index, double delay) = 0;
    virtual void setBusPinLow(const std::string& bus, std::int32_t index, double delay) = 0;
    virtual void setPinHigh(const std::string& pin, double delay) = 0;
    virtual void setPinLow(const std::string& pin, double delay) = 0;

    /// Asks for a wake event with this identifier; the meaning of the time is the simulator's.
    virtual void scheduleWake(const double& time, std::uint64_t wakeIdentifier) = 0;

    /// The transitions that wakes will fire, by wake identifier. A wake that has fired stays until the source
    /// of its transition is exited.
    const std::unordered_map<std::uint64_t, const Transition*>& pendingWakes() const
    {
        return m_pendingWakes;
    }

protected:
    /// The variables of the device, those of the chart from start() on. Setting one of them is the
    /// simulator's.
    std::unordered_map<std::string, DeviceVariableValue>& deviceVariables() { return m_variables; }
    const std::unordered_map<std::string, DeviceVariableValue>& deviceVariables() const
    {
        return m_variables;
    }

    /// What a getVariable operation gives: the value of one of deviceVariables().
    /// @throws std::runtime_error that names the variable when there is none of this name, and the expected
    /// and the held type when it holds another than T.
    template <class T>
    const T& heldVariable(const std::string& name) const
    {
        const DeviceVariableValue& value = knownVariable(name);
        if (const T* const held = std::get_if<T>(&value))
            return *held;
        refuseVariable(name, DeviceVariableValue(T()).index(), value.index());
    }

    /// What setVariable does to deviceVariables(): the variable then holds the value, and its type.
    /// @throws std::runtime_error that names the variable when there is none of this name.
    void holdVariable(const std::string& name, const DeviceVariableValue& value);

private:
    const DeviceVariableValue& knownVariable(const std::string& name) const;
    [[noreturn]] static void refuseVariable(const std::string& name);
    [[noreturn]] static void refuseVariable(const std::string& name, std::size_t expected, std::size_t held);

    struct WakeTransition
    {
        const Transition* transition;
        const AbstractExpressionImpl<double>* time;
    };

    /// A state that has transitions with a wake time.
    struct WakeState
    {
        std::vector<WakeTransition> transitions;
        std::vector<std::uint64_t> pendingWakes; // their identifiers
    };

    void findWakeStates();
    void armWakes(WakeState& state);
    void keepPendingWake(std::uint64_t wakeIdentifier, const Transition& transition);

    std::uint64_t m_nextWakeIdentifier = 1;
    std::unordered_map<std::string, DeviceVariableValue> m_variables;
    std::unordered_map<std::uint64_t, const Transition*> m_pendingWakes;
    std::vector<std::shared_ptr<AbstractState>> m_newlyEntered; // in this dispatch; wake states only

    std::unordered_map<const AbstractState*, WakeState> m_wakeStates;
    std::vector<decltype(m_pendingWakes)::node_type> m_spareNodes; // of m_pendingWakes, for their memory
};

#endif
