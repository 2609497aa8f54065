#include "simulator/inputfeed.h"

#include "simulator/signalvalue.h"

#include <algorithm>
#include <stdexcept>

namespace {

void requireInput(const Signal& signal)
{
    if (!signal.isInput)
        throw std::runtime_error((signal.isBus() ? "bus '" : "pin '") + signal.name +
                                 "' is an output: only the device drives it");
}

template <class Function>
auto at(const std::string& place, Function function)
{
    try {
        return function();
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(place + ": " + error.what());
    }
}

} // namespace

InputFeed::InputFeed(const Stimulus& stimulus, const SignalTable& signals)
{
    for (const StimulusClock& clock : stimulus.clocks) {
        at("clocks[" + std::to_string(m_clocks.size()) + "]", [&] {
            const std::size_t signal = signals.pin(clock.pin);
            requireInput(signals[signal]);
            m_clocks.push_back({signal, clock.high, clock.period - clock.high, clock.start});
        });
    }
    for (const StimulusEntry& event : stimulus.events) {
        at(event.place, [&] {
            const std::size_t signal =
                event.kind == TargetKind::pin ? signals.pin(event.name) : signals.bus(event.name);
            requireInput(signals[signal]);
            m_events.push_back({event.time, {signal, linesOf(signals[signal], event.value)}});
        });
    }
    std::ranges::stable_sort(m_events, {}, &Event::time);
}

Ticks InputFeed::nextTime() const
{
    Ticks next = m_next < m_events.size() ? m_events[m_next].time : never;
    for (const Clock& clock : m_clocks)
        next = std::min(next, clock.nextEdge);
    return next;
}

void InputFeed::advance(Clock& clock)
{
    clock.isHigh = !clock.isHigh;
    const Ticks span = clock.isHigh ? clock.high : clock.low;
    clock.nextEdge = clock.nextEdge > never - span ? never : clock.nextEdge + span;
}

void InputFeed::take(std::vector<InputDrive>& drives)
{
    const Ticks time = nextTime();
    for (Clock& clock : m_clocks) {
        if (clock.nextEdge != time)
            continue;
        advance(clock);
        drives.push_back({clock.signal, clock.isHigh ? std::uint64_t{1} : std::uint64_t{0}});
    }
    for (; m_next < m_events.size() && m_events[m_next].time == time; ++m_next)
        drives.push_back(m_events[m_next].drive);
}
