#ifndef COVERAGECOLLECTOR_H
#define COVERAGECOLLECTOR_H

#include "reports/coverage.h"
#include "simulator/simulationlistener.h"

#include <unordered_map>

/// Counts what runs of one device use of its chart.
class CoverageCollector : public SimulationListener
{
public:
    /// Of all runs so far.
    const Coverage& coverage() const { return m_coverage; }

    void start(const SimulatedDevice& device) override;
    void stateEntered(const AbstractState& state) override;
    void transitionTaken(const Transition& transition) override;
    void conditionTested(const Transition& transition, std::size_t index, bool holds) override;

private:
    Coverage m_coverage;
    std::unordered_map<const AbstractState*, std::size_t> m_states;   // of this run's chart
    std::unordered_map<const Transition*, std::size_t> m_transitions; // of this run's chart
};

#endif
