#include "runprogress.h"

#include "simulator/simulateddevice.h"
#include "standardstreams.h"

#include <unistd.h>

namespace {

constexpr auto interval = std::chrono::seconds(1);
constexpr unsigned timesPerLook = 1024; // asking for the time costs time
constexpr auto lineStart = "\r\x1b[K";  // and nothing in the line

} // namespace

RunProgress::RunProgress() : m_isTerminal(::isatty(STDERR_FILENO) == 1) {}

void RunProgress::start(const SimulatedDevice& device)
{
    m_device = &device;
    m_next = Clock::now() + interval;
}

void RunProgress::timeEnds(Ticks time)
{
    if (m_isTerminal && ++m_times % timesPerLook == 0 && Clock::now() >= m_next)
        show(time);
}

void RunProgress::show(Ticks time)
{
    m_next = Clock::now() + interval;
    m_isShown = true;
    const double share = m_end > 0 ? static_cast<double>(time) / static_cast<double>(m_end) : 1;
    StandardStreams::printError(lineStart + std::to_string(static_cast<int>(share * 100)) + " %, at " +
                                timeText(time, m_device->resolution()) + " of " +
                                timeText(m_end, m_device->resolution()));
}

void RunProgress::finish(Ticks)
{
    if (m_isShown)
        StandardStreams::printError(lineStart);
    m_isShown = false;
}
