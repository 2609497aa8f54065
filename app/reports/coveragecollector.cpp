#include "reports/coveragecollector.h"

#include "simulator/simulateddevice.h"

namespace {

std::string pathOf(const AbstractState& state)
{
    return (state.parent ? pathOf(*state.parent) + "/" : "") + state.identifier;
}

} // namespace

void CoverageCollector::start(const SimulatedDevice& device)
{
    // Another run of the same device has a chart of its own, with everything in the same order.
    const bool isFirst = m_coverage.states.empty();
    m_states.clear();
    m_transitions.clear();
    for (const std::shared_ptr<AbstractState>& state : device.chart().allStates()) {
        m_states.emplace(state.get(), m_states.size());
        if (isFirst)
            m_coverage.states.push_back({pathOf(*state)});
        for (const Transition& transition : state->transitions) {
            m_transitions.emplace(&transition, m_transitions.size());
            if (isFirst)
                m_coverage.transitions.push_back(
                    {transition.identifier, pathOf(*state), pathOf(*transition.target), 0,
                     std::vector<Coverage::Condition>(transition.conditions.size())});
        }
    }
}

void CoverageCollector::stateEntered(const AbstractState& state)
{
    ++m_coverage.states[m_states.at(&state)].entered;
}

void CoverageCollector::transitionTaken(const Transition& transition)
{
    ++m_coverage.transitions[m_transitions.at(&transition)].taken;
}

void CoverageCollector::conditionTested(const Transition& transition, std::size_t index, bool holds)
{
    Coverage::Condition& condition = m_coverage.transitions[m_transitions.at(&transition)].conditions[index];
    ++(holds ? condition.held : condition.failed);
}
