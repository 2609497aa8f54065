#include "reports/tracewriter.h"

#include "simulator/simulateddevice.h"

#include <algorithm>

namespace {

std::string quoted(const std::string& identifier)
{
    return "'" + identifier + "'";
}

} // namespace

void TraceWriter::write(const std::string& what)
{
    std::string line = timeText(m_device->now(), m_device->resolution()) + ": " + what;
    for (char& character : line)
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7f)
            character = '?'; // one line is one thing that happened
    m_sink(line + "\n");
}

void TraceWriter::start(const SimulatedDevice& device)
{
    m_device = &device;
    m_known.clear();
}

void TraceWriter::signalChanged(const Signal& signal)
{
    write((signal.isInput ? "input " : "output ") + std::string(signal.isBus() ? "bus " : "pin ") +
          quoted(signal.name) + " = " + signal.valueText());
}

void TraceWriter::startBegins()
{
    write("event: start");
}

void TraceWriter::changeBegins(const InputChangeEvent& event)
{
    const Signal& signal = m_device->signals()[event.signal()];
    if (signal.isBus())
        write("event: change of bus " + quoted(signal.name));
    else
        write("event: " + std::string(event.isRising() ? "rising" : "falling") + " edge of pin " +
              quoted(signal.name));
}

void TraceWriter::wakeBegins(std::uint64_t wakeIdentifier, const Transition* transition)
{
    write("event: wake " + std::to_string(wakeIdentifier) +
          (transition != nullptr ? " of transition " + quoted(transition->identifier)
                                 : std::string(", whose state has been left")));
}

void TraceWriter::stateEntered(const AbstractState& state)
{
    write("enter state " + quoted(state.identifier));
    if (state.type() == AbstractState::atomic && std::ranges::find(m_known, &state) == m_known.end())
        m_known.push_back(&state);
}

void TraceWriter::stateExited(const AbstractState& state)
{
    write("leave state " + quoted(state.identifier));
    std::erase(m_known, &state);
}

void TraceWriter::eventEnds()
{
    // States inside of one that was left go without a word; only what is active then tells of them.
    const auto& active = m_device->activeStates();
    std::erase_if(m_known, [&](const AbstractState* known) {
        const bool isActive =
            std::ranges::any_of(active, [&](const auto& state) { return state.get() == known; });
        if (!isActive)
            write("drop state " + quoted(known->identifier) + ", left from around it");
        return !isActive;
    });
}

void TraceWriter::transitionTaken(const Transition& transition)
{
    write("take transition " + quoted(transition.identifier) + " from " +
          quoted(transition.source->identifier) + " to " + quoted(transition.target->identifier));
}

void TraceWriter::wakeArmed(std::uint64_t wakeIdentifier, const Transition& transition, Ticks time)
{
    write("arm wake " + std::to_string(wakeIdentifier) + " of transition " + quoted(transition.identifier) +
          " for " + timeText(time, m_device->resolution()));
}
