#ifndef RUNPROGRESS_H
#define RUNPROGRESS_H

#include "simulator/simulationlistener.h"

#include <chrono>

/// Shows on a terminal how far a long run has come: a line on standard error that is written over, and gone
/// in the end. Says nothing when standard error is no terminal, and in the first second.
class RunProgress : public SimulationListener
{
public:
    RunProgress();

    void start(const SimulatedDevice& device) override;
    void timeEnds(Ticks time) override;
    void finish(Ticks time) override;

    /// When the run that begins next is to end.
    void setEnd(Ticks end) { m_end = end; }

private:
    using Clock = std::chrono::steady_clock;

    void show(Ticks time);

    const SimulatedDevice* m_device = nullptr;
    Ticks m_end = 0;
    bool m_isTerminal;
    bool m_isShown = false;
    unsigned m_times = 0;
    Clock::time_point m_next;
};

#endif
