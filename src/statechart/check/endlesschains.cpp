#include "statechart/check/endlesschains.h"

#include <algorithm>

namespace {

constexpr std::size_t costOfEvaluation = 50; // in steps from state to state

/// A group of states may cost this times its size and no more of the stock.
constexpr std::size_t stepsForEach = 8;

} // namespace

EndlessChains::EndlessChains(const CheckedDefinition& checked)
    : m_chart(checked.chart), m_readings(checked), m_world(checked.folding, m_readings),
      m_run(checked.chart, [this](std::size_t transition) { return holds(transition); })
{}

std::vector<std::vector<std::size_t>> EndlessChains::find()
{
    std::vector<std::vector<std::size_t>> groups = componentsWithWaysRound(edges());
    std::ranges::sort(groups);
    for (const std::vector<std::size_t>& group : groups)
        findIn(group);
    return std::move(m_found);
}

/// From states to those that may be entered next, with no event in between.
GraphEdges EndlessChains::edges()
{
    GraphEdges edges(m_chart.states().size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const ChartState& state = m_chart.states()[i];
        bool isLeft = false;
        for (const std::size_t index : state.transitions) {
            const ChartTransition& transition = m_chart.transitions()[index];
            ++m_steps;
            if (isLeft || transition.hasEvent() || transition.holding == Holding::never)
                continue;
            if (transition.target)
                edges[i].push_back(*transition.target);
            isLeft = transition.holding == Holding::always;
        }
        if (!isLeft)
            edges[i].insert(edges[i].end(), state.children.begin(), state.children.end());
    }
    return edges;
}

void EndlessChains::findIn(const std::vector<std::size_t>& states)
{
    std::vector<std::size_t> transitions;
    std::size_t size = 0; // of what is entered on the way: regions that lead nowhere belong to it
    for (const std::size_t state : states) {
        size += 1 + m_chart.states()[state].children.size();
        for (const std::size_t transition : m_chart.states()[state].transitions) {
            if (!m_chart.transitions()[transition].hasEvent())
                transitions.push_back(transition);
        }
    }
    std::ranges::sort(transitions);
    m_allowance = stepsForEach * (size + transitions.size());
    m_world.beginWith(m_chart, transitions);
    std::vector<bool> isFound; // by index in `transitions`
    isFound.resize(transitions.size());
    for (std::size_t i = 0; i < transitions.size() && m_allowance + m_stock > 0; ++i) {
        const bool isAtomic =
            m_chart.states()[m_chart.transitions()[transitions[i]].source].type == ChartState::Type::atomic;
        if (isFound[i] || !isAtomic || !findFrom(transitions[i]))
            continue;
        for (const std::size_t transition : m_found.back()) {
            const auto found = std::ranges::lower_bound(transitions, transition);
            if (found != transitions.end() && *found == transition)
                isFound[static_cast<std::size_t>(found - transitions.begin())] = true;
        }
    }
}

/// Whether a transition is the one that is taken when its source is entered.
std::optional<bool> EndlessChains::isTakenOnEntry(std::size_t transition)
{
    const ChartState& source = m_chart.states()[m_chart.transitions()[transition].source];
    for (const std::size_t each : source.transitions) {
        const std::optional<bool> isTaken = m_chart.transitions()[each].hasEvent() ? false : holds(each);
        if (!isTaken)
            return std::nullopt;
        if (*isTaken || each == transition)
            return *isTaken && each == transition;
    }
    return false;
}

/// Decides one by one what the run asks for, and runs again.
bool EndlessChains::findFrom(std::size_t transition)
{
    if (m_allowance + m_stock == 0)
        return false;
    const std::optional<bool> isTaken = isTakenOnEntry(transition);
    if (isTaken == false)
        return false;
    if (isTaken == true) {
        const std::vector<std::size_t> way = m_run.wayRound(transition, m_allowance + m_stock);
        spend(m_run.steps());
        if (!way.empty()) {
            m_found.push_back(way);
            return true;
        }
    }
    const std::optional<StandingThing> wanted = m_world.wanted();
    if (!wanted)
        return false;
    for (const double value : m_world.candidatesFor(*wanted)) {
        m_world.decide(wanted->key, value);
        const bool isFound = findFrom(transition);
        m_world.forget(wanted->key);
        if (isFound)
            return true;
    }
    return false;
}

std::optional<bool> EndlessChains::holds(std::size_t transition)
{
    if (m_allowance + m_stock == 0)
        return std::nullopt;
    const std::size_t before = m_world.evaluations();
    const std::optional<bool> holds = m_world.holds(m_chart.transitions()[transition]);
    spend(1 + (m_world.evaluations() - before) * costOfEvaluation);
    return holds;
}

void EndlessChains::spend(std::size_t steps)
{
    m_steps += steps;
    const std::size_t own = std::min(steps, m_allowance);
    m_allowance -= own;
    m_stock -= std::min(steps - own, m_stock);
}
