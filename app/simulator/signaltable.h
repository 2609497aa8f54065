#ifndef SIGNALTABLE_H
#define SIGNALTABLE_H

#include "simulator/deviceorder.h"
#include "simulator/signal.h"
#include "statechart/digitaldevicestatechart.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

/// The pins and buses of a running device. Inputs are low, an input bus is 0, and outputs are as the device
/// says, until somebody sets their lines.
class SignalTable
{
public:
    /// @throws std::runtime_error for a bus that is wider than values are, and for a name that stands twice
    SignalTable(const DigitalDeviceStateChart& chart, const DeviceOrder& order);

    /// Inputs first, pins first, each in the order of the device.
    const std::vector<Signal>& all() const { return m_signals; }
    const Signal& operator[](std::size_t index) const { return m_signals[index]; }
    Signal& operator[](std::size_t index) { return m_signals[index]; }

    /// The index of the pin or bus. @throws std::runtime_error "the device has no pin 'x'" or "... no bus
    /// 'x'"
    std::size_t pin(const std::string& name) const { return find(name, Signal::Kind::pin); }
    std::size_t bus(const std::string& name) const { return find(name, Signal::Kind::bus); }

private:
    void addBus(const std::string& name, const AbstractBusDefinition& definition, bool isInput,
                const BusValue& value);
    void addPin(const std::string& name, bool isInput, bool isHigh);
    void add(Signal signal);
    std::size_t find(const std::string& name, Signal::Kind kind) const;

    std::vector<Signal> m_signals;
    std::unordered_map<std::string, std::size_t> m_indexes;
};

#endif
