#include "simulator/simulation.h"

#include <algorithm>
#include <stdexcept>

namespace {

ParameterOverrides parametersOf(const SimulationSetup& setup)
{
    ParameterOverrides parameters = setup.stimulus.parameters;
    parameters.insert(parameters.end(), setup.parameters.begin(), setup.parameters.end());
    return parameters;
}

Ticks endOf(const SimulationSetup& setup)
{
    if (setup.until)
        return *setup.until;
    if (setup.stimulus.until)
        return *setup.stimulus.until;
    if (const std::optional<Ticks> last = setup.stimulus.lastTime())
        return *last;
    throw std::runtime_error(
        "nothing says when the run is to end: give --until, or \"until\" in the stimulus");
}

} // namespace

Simulation::Simulation(std::shared_ptr<const DigitalDeviceStateChart> chart, const DeviceOrder& order,
                       const SimulationSetup& setup, std::span<SimulationListener* const> listeners)
    : m_listeners(listeners.begin(), listeners.end()),
      m_device(std::move(chart), order, parametersOf(setup), setup.resolution, m_listeners),
      m_feed(setup.stimulus, m_device.signals()), m_expectations(setup.stimulus, m_device),
      m_until(endOf(setup))
{}

SimulationResult Simulation::run()
{
    SimulationResult result;
    try {
        runToEnd(result);
        m_expectations.check(m_until, m_device, result.failedExpectations);
        result.expectationsNotReached = m_expectations.countLeft();
        result.end = m_until;
    } catch (const std::exception& error) {
        result.error = located(error.what());
        result.end = m_device.now();
    }
    result.eventCount = m_eventCount;
    for (SimulationListener* const listener : m_listeners)
        listener->finish(result.end);
    return result;
}

void Simulation::runToEnd(SimulationResult& result)
{
    countEvent();
    m_device.startRun();
    for (Ticks time = nextTime(); time <= m_until; time = nextTime()) {
        if (time > m_device.now())
            goTo(time, result);
        handleNext();
    }
    for (SimulationListener* const listener : m_listeners)
        listener->timeEnds(m_device.now());
}

Ticks Simulation::nextTime() const
{
    const EventQueue& queue = m_device.queue();
    return std::min(queue.empty() ? InputFeed::never : queue.nextTime(), m_feed.nextTime());
}

void Simulation::goTo(Ticks time, SimulationResult& result)
{
    for (SimulationListener* const listener : m_listeners)
        listener->timeEnds(m_device.now());
    m_expectations.check(time - 1, m_device, result.failedExpectations);
    m_device.setNow(time);
    m_eventsAtThisTime = 0;
}

void Simulation::handleNext()
{
    EventQueue& queue = m_device.queue();
    const bool isInQueue = !queue.empty() && queue.nextTime() == m_device.now();
    if (isInQueue && !queue.nextIsWake()) {
        const OutputChange change = queue.takeOutputChange();
        m_device.setLines(change.signal, change.mask, change.lines);
    } else if (m_feed.nextTime() == m_device.now()) {
        applyInputs();
    } else {
        countEvent();
        m_device.wake(queue.takeWake());
    }
}

void Simulation::applyInputs()
{
    m_drives.clear();
    m_changes.clear();
    m_feed.take(m_drives);
    for (const auto& [signal, lines] : m_drives) {
        if (m_device.setLines(signal, m_device.signals()[signal].mask(), lines))
            m_changes.emplace_back(signal, (lines & 1) != 0);
    }
    for (const InputChangeEvent& change : m_changes) {
        countEvent();
        m_device.change(change);
    }
}

void Simulation::countEvent()
{
    ++m_eventCount;
    if (++m_eventsAtThisTime > maximumEventsAtOneTime)
        throw std::runtime_error("time does not go on: more than " + std::to_string(maximumEventsAtOneTime) +
                                 " events at one time");
}

std::string Simulation::located(const char* what) const
{
    const RunningCode& code = m_device.runningCode();
    FixedText text;
    code.writeTime(text);
    text << ": " << what;
    if (code.isRunning && code.isKnown()) {
        text << ", ";
        code.writePlace(text);
    }
    return std::string(text.view());
}
