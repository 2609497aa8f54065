#include "simulator/expectations.h"

#include "simulator/signalvalue.h"
#include "simulator/variablevalue.h"

#include <algorithm>
#include <stdexcept>

Expectations::Expectations(const Stimulus& stimulus, const SimulatedDevice& device)
{
    for (const StimulusEntry& expected : stimulus.expectations) {
        try {
            Entry entry{expected.time, expected.kind, expected.name, 0, 0, {}};
            if (expected.kind == TargetKind::variable) {
                const auto found = device.variables().find(expected.name);
                if (found == device.variables().end())
                    throw std::runtime_error("unknown variable: '" + expected.name + "'");
                entry.variable = variableValueOf(expected.name, found->second, expected.value);
            } else {
                entry.signal = expected.kind == TargetKind::pin ? device.signals().pin(expected.name)
                                                                : device.signals().bus(expected.name);
                entry.lines = linesOf(device.signals()[entry.signal], expected.value);
            }
            m_entries.push_back(std::move(entry));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(expected.place + ": " + error.what());
        }
    }
    std::ranges::stable_sort(m_entries, {}, &Entry::time);
}

void Expectations::check(Ticks upTo, const SimulatedDevice& device, std::vector<FailedExpectation>& failed)
{
    for (; m_next < m_entries.size() && m_entries[m_next].time <= upTo; ++m_next) {
        const Entry& entry = m_entries[m_next];
        if (entry.kind == TargetKind::variable) {
            const DeviceVariableValue& actual = device.variables().at(entry.name);
            if (actual != entry.variable)
                failed.push_back({entry.time, entry.name, textOf(actual), textOf(entry.variable)});
            continue;
        }
        Signal signal = device.signals()[entry.signal];
        if (signal.lines == entry.lines)
            continue;
        std::string actual = signal.valueText();
        signal.lines = entry.lines;
        failed.push_back({entry.time, entry.name, std::move(actual), signal.valueText()});
    }
}
