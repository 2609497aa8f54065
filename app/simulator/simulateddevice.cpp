#include "simulator/simulateddevice.h"

#include <limits>
#include <stdexcept>
#include <type_traits>

namespace {

constexpr std::array<std::string_view, 6> variableTypes{"int",  "double",  "string",
                                                        "bool", "int64_t", "uint64_t"};
static_assert(std::variant_size_v<DeviceVariableValue> == variableTypes.size());

std::string wordOf(BusDataType type)
{
    return type == BusDataType::int64 ? "int64_t" : "uint64_t";
}

/// An index into the lines of a bus, when it is one.
std::uint32_t lineOf(const Signal& bus, std::int32_t index)
{
    if (index < 0 || static_cast<std::uint32_t>(index) >= bus.width)
        throw std::runtime_error("bus '" + bus.name + "' has no pin " + std::to_string(index) + ": it is " +
                                 std::to_string(bus.width) + " wide");
    return static_cast<std::uint32_t>(index);
}

} // namespace

SimulatedDevice::SimulatedDevice(std::shared_ptr<const DigitalDeviceStateChart> chart,
                                 const DeviceOrder& order, const ParameterOverrides& overrides,
                                 TimeResolution resolution, std::span<SimulationListener* const> listeners)
    : AbstractDigitalDeviceActor(chart), m_order(order), m_resolution(resolution), m_listeners(listeners),
      m_parameters(*chart, overrides), m_signals(*chart, order)
{
    m_runningCode.resolution = resolution;
    deviceVariables() = chart->variables;
    setObserver(this);
}

void SimulatedDevice::setNow(Ticks now)
{
    m_now = now;
    m_runningCode.time = now;
}

// --- what makes the device go on

void SimulatedDevice::startRun()
{
    tell(&SimulationListener::start, *this);
    beginEvent();
    tell(&SimulationListener::startBegins);
    start();
    endEvent();
}

void SimulatedDevice::change(const InputChangeEvent& event)
{
    m_change = &event;
    beginEvent();
    tell(&SimulationListener::changeBegins, event);
    dispatch(event);
    m_change = nullptr;
    endEvent();
}

void SimulatedDevice::wake(std::uint64_t wakeIdentifier)
{
    const auto pending = pendingWakes().find(wakeIdentifier);
    const Transition* const transition = pending == pendingWakes().end() ? nullptr : pending->second;
    beginEvent();
    tell(&SimulationListener::wakeBegins, wakeIdentifier, transition);
    dispatch(WakeRequestedEvent(wakeIdentifier));
    endEvent();
}

void SimulatedDevice::beginEvent()
{
    m_transitionsTaken = 0;
    m_statesEntered = 0;
    m_runningCode.eventCount = m_runningCode.eventCount + 1;
    m_runningCode.isRunning = true;
}

/// Stops the run for what no piece of code is to blame for.
void SimulatedDevice::giveUp(const std::string& what)
{
    m_runningCode.code = {};
    throw std::runtime_error(what);
}

void SimulatedDevice::endEvent()
{
    m_runningCode.isRunning = false;
    tell(&SimulationListener::eventEnds);
}

bool SimulatedDevice::setLines(std::size_t index, std::uint64_t mask, std::uint64_t lines)
{
    Signal& signal = m_signals[index];
    const std::uint64_t changed = (signal.lines & ~mask) | (lines & mask);
    if (changed == signal.lines)
        return false;
    signal.lines = changed;
    tell(&SimulationListener::signalChanged, signal);
    return true;
}

// --- what happens in the chart

void SimulatedDevice::stateEntered(const std::shared_ptr<AbstractState>& state)
{
    AbstractDigitalDeviceActor::stateEntered(state);
    if (++m_statesEntered > maximumEntries)
        giveUp("more than " + std::to_string(maximumEntries) +
               " states are entered in one event, at state '" + state->identifier + "'");
    tell(&SimulationListener::stateEntered, *state);
}

void SimulatedDevice::stateExited(const std::shared_ptr<AbstractState>& state)
{
    AbstractDigitalDeviceActor::stateExited(state);
    if (state != chart().initialState) // in which nobody knows the device to be
        tell(&SimulationListener::stateExited, *state);
}

void SimulatedDevice::transitionTaken(const Transition& transition)
{
    if (transition.source == chart().initialState)
        return;
    if (++m_transitionsTaken > maximumTransitions)
        giveUp("a chain of transitions does not end: more than " + std::to_string(maximumTransitions) +
               " in one event, at transition '" + transition.identifier + "' of state '" +
               transition.source->identifier + "'");
    tell(&SimulationListener::transitionTaken, transition);
}

void SimulatedDevice::codeBegins(const ActorCode& code)
{
    m_runningCode.code = code;
    m_runningCode.count.store(m_runningCode.count.load(std::memory_order_relaxed) + 1,
                              std::memory_order_relaxed);
}

void SimulatedDevice::conditionTested(const Transition& transition, std::size_t index, bool holds)
{
    tell(&SimulationListener::conditionTested, transition, index, holds);
}

void SimulatedDevice::scheduleWake(const double& time, std::uint64_t wakeIdentifier)
{
    const Ticks span = m_resolution.ticks(time, "the wake time");
    if (span > std::numeric_limits<Ticks>::max() - m_now)
        throw std::runtime_error("the wake time lies beyond the end of time");
    requireRoomInQueue();
    m_queue.addWake(m_now + span, wakeIdentifier);
    tell(&SimulationListener::wakeArmed, wakeIdentifier, *m_runningCode.code.transition, m_now + span);
}

// --- text and time

void SimulatedDevice::print(const std::string& text)
{
    tell(&SimulationListener::printed, std::string_view(text));
}

double SimulatedDevice::simulationTime()
{
    return m_resolution.seconds(m_now);
}

// --- variables

void SimulatedDevice::setVariable(const std::string& name, const DeviceVariableValue& value)
{
    const auto found = deviceVariables().find(name);
    if (found == deviceVariables().end())
        throw std::runtime_error("unknown variable: '" + name + "'");
    if (found->second.index() != value.index())
        throw std::runtime_error("variable '" + name + "' is set to '" +
                                 std::string(variableTypes[value.index()]) + "', and holds '" +
                                 std::string(variableTypes[found->second.index()]) + "'");
    if (found->second == value)
        return;
    found->second = value;
    tell(&SimulationListener::variableChanged, found->first, found->second);
}

std::int32_t SimulatedDevice::getVariable_int(const std::string& name)
{
    return heldVariable<std::int32_t>(name);
}

double SimulatedDevice::getVariable_double(const std::string& name)
{
    return heldVariable<double>(name);
}

std::string SimulatedDevice::getVariable_string(const std::string& name)
{
    return heldVariable<std::string>(name);
}

bool SimulatedDevice::getVariable_bool(const std::string& name)
{
    return heldVariable<bool>(name);
}

std::int64_t SimulatedDevice::getVariable_int64_t(const std::string& name)
{
    return heldVariable<std::int64_t>(name);
}

std::uint64_t SimulatedDevice::getVariable_uint64_t(const std::string& name)
{
    return heldVariable<std::uint64_t>(name);
}

// --- parameters

std::int64_t SimulatedDevice::getParameter_int64_t(const std::string& name)
{
    return m_parameters.int64(name);
}

std::uint64_t SimulatedDevice::getParameter_uint64_t(const std::string& name)
{
    return m_parameters.uint64(name);
}

double SimulatedDevice::getParameter_double(const std::string& name)
{
    return m_parameters.real(name);
}

// --- reading pins and buses

const Signal& SimulatedDevice::readableBus(const std::string& name, BusDataType type) const
{
    const Signal& bus = m_signals[m_signals.bus(name)];
    if (bus.dataType != type)
        throw std::runtime_error("bus '" + name + "' is read as '" + wordOf(type) + "', and holds '" +
                                 wordOf(bus.dataType) + "'");
    return bus;
}

std::int64_t SimulatedDevice::readBus_int64_t(const std::string& bus)
{
    return std::get<std::int64_t>(readableBus(bus, BusDataType::int64).value());
}

std::uint64_t SimulatedDevice::readBus_uint64_t(const std::string& bus)
{
    return std::get<std::uint64_t>(readableBus(bus, BusDataType::uint64).value());
}

bool SimulatedDevice::isPinHigh(const std::string& pin)
{
    return m_signals[m_signals.pin(pin)].isHigh(0);
}

bool SimulatedDevice::isPinLow(const std::string& pin)
{
    return !isPinHigh(pin);
}

bool SimulatedDevice::isLineHigh(const std::string& bus, std::int32_t index) const
{
    const Signal& signal = m_signals[m_signals.bus(bus)];
    return signal.isHigh(lineOf(signal, index));
}

bool SimulatedDevice::isBusPinHigh(const std::string& bus, std::int32_t index)
{
    return isLineHigh(bus, index);
}

bool SimulatedDevice::isBusPinLow(const std::string& bus, std::int32_t index)
{
    return !isLineHigh(bus, index);
}

const InputChangeEvent* SimulatedDevice::edgeOf(const std::string& pin) const
{
    const std::size_t signal = m_signals.pin(pin);
    return m_change != nullptr && m_change->signal() == signal ? m_change : nullptr;
}

bool SimulatedDevice::isEdgeEvent(const std::string& pin)
{
    return edgeOf(pin) != nullptr;
}

bool SimulatedDevice::isPositiveEdge(const std::string& pin)
{
    const InputChangeEvent* const edge = edgeOf(pin);
    return edge != nullptr && edge->isRising();
}

bool SimulatedDevice::isNegativeEdge(const std::string& pin)
{
    const InputChangeEvent* const edge = edgeOf(pin);
    return edge != nullptr && !edge->isRising();
}

// --- driving pins and buses

void SimulatedDevice::schedule(const OutputChange& change, double delay)
{
    if (m_signals[change.signal].isInput)
        throw std::runtime_error((m_signals[change.signal].isBus() ? "bus '" : "pin '") +
                                 m_signals[change.signal].name + "' is an input: the device cannot drive it");
    const Ticks span = m_resolution.ticks(delay, "the delay");
    if (span > std::numeric_limits<Ticks>::max() - m_now)
        throw std::runtime_error("the delay leads beyond the end of time");
    if (span == 0) {
        setLines(change.signal, change.mask, change.lines);
        return;
    }
    requireRoomInQueue();
    m_queue.add(m_now + span, change);
}

void SimulatedDevice::requireRoomInQueue() const
{
    if (m_queue.size() >= maximumWaiting)
        throw std::runtime_error("more than " + std::to_string(maximumWaiting) +
                                 " changes and wakes wait for their time");
}

void SimulatedDevice::writeBus(const std::string& bus, const BusValue& value, double delay)
{
    const std::size_t index = m_signals.bus(bus);
    const Signal& signal = m_signals[index];
    schedule({index, signal.mask(), signal.linesOf(value)}, delay);
}

void SimulatedDevice::setLine(const std::string& bus, std::int32_t index, bool isHigh, double delay)
{
    const std::size_t signal = m_signals.bus(bus);
    const std::uint64_t mask = std::uint64_t{1} << lineOf(m_signals[signal], index);
    schedule({signal, mask, isHigh ? mask : 0}, delay);
}

void SimulatedDevice::setPin(const std::string& pin, bool isHigh, double delay)
{
    schedule({m_signals.pin(pin), 1, isHigh ? std::uint64_t{1} : std::uint64_t{0}}, delay);
}

void SimulatedDevice::setBusPinHigh(const std::string& bus, std::int32_t index, double delay)
{
    setLine(bus, index, true, delay);
}

void SimulatedDevice::setBusPinLow(const std::string& bus, std::int32_t index, double delay)
{
    setLine(bus, index, false, delay);
}

void SimulatedDevice::setPinHigh(const std::string& pin, double delay)
{
    setPin(pin, true, delay);
}

void SimulatedDevice::setPinLow(const std::string& pin, double delay)
{
    setPin(pin, false, delay);
}
