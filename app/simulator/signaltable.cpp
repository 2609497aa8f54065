#include "simulator/signaltable.h"

#include <stdexcept>

SignalTable::SignalTable(const DigitalDeviceStateChart& chart, const DeviceOrder& order)
{
    for (const std::string& name : order.inputPins)
        addPin(name, true, false);
    for (const std::string& name : order.inputBuses)
        addBus(name, chart.inputBuses.at(name), true, std::int64_t{0});
    for (const std::string& name : order.outputPins)
        addPin(name, false, chart.outputPins.at(name).initial == PinInitialValue::high);
    for (const std::string& name : order.outputBuses) {
        const OutputBusDefinition& bus = chart.outputBuses.at(name);
        addBus(name, bus, false, bus.initial);
    }
}

void SignalTable::addPin(const std::string& name, bool isInput, bool isHigh)
{
    Signal signal;
    signal.name = name;
    signal.isInput = isInput;
    signal.lines = isHigh ? 1 : 0;
    add(std::move(signal));
}

void SignalTable::addBus(const std::string& name, const AbstractBusDefinition& definition, bool isInput,
                         const BusValue& value)
{
    if (definition.width == 0 || definition.width > Signal::maximumWidth)
        throw std::runtime_error("bus '" + name + "' is " + std::to_string(definition.width) +
                                 " wide: a simulation takes buses of 1 to 64 lines");
    Signal signal;
    signal.name = name;
    signal.kind = Signal::Kind::bus;
    signal.isInput = isInput;
    signal.width = definition.width;
    signal.dataType = definition.dataType;
    signal.encoding = definition.encoding;
    signal.lines = signal.linesOf(value);
    add(std::move(signal));
}

void SignalTable::add(Signal signal)
{
    if (!m_indexes.emplace(signal.name, m_signals.size()).second)
        throw std::runtime_error("the device has two pins or buses '" + signal.name + "'");
    m_signals.push_back(std::move(signal));
}

std::size_t SignalTable::find(const std::string& name, Signal::Kind kind) const
{
    const auto found = m_indexes.find(name);
    if (found == m_indexes.end() || m_signals[found->second].kind != kind)
        throw std::runtime_error(
            (kind == Signal::Kind::pin ? "the device has no pin '" : "the device has no bus '") + name + "'");
    return found->second;
}
