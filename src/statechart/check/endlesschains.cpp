#include "statechart/check/endlesschains.h"

#include <algorithm>
#include <utility>

namespace {

/// A group of states may cost this times its size and no more of the stock.
constexpr std::size_t stepsForEach = 8;

} // namespace

EndlessChains::EndlessChains(const CheckedDefinition& checked)
    : m_chart(checked.chart), m_readings(checked), m_world(checked.folding, m_readings),
      m_run(checked.chart, [this](std::size_t transition) { return holds(transition); }),
      m_isFound(checked.chart.transitions().size())
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
    for (const std::size_t transition : transitions) {
        const std::size_t source = m_chart.transitions()[transition].source;
        if (!m_isFound[transition] && m_chart.states()[source].type == ChartState::Type::atomic)
            findFrom(transition);
    }
}

/// Keeps a way that has nothing in common with those found before: many starts lead into one round.
bool EndlessChains::keep(std::vector<std::size_t> way)
{
    const auto isFound = [&](std::size_t transition) { return m_isFound[transition]; };
    if (way.empty() || std::ranges::any_of(way, isFound))
        return false;
    for (const std::size_t transition : way)
        m_isFound[transition] = true;
    m_found.push_back(std::move(way));
    return true;
}

/// Whether a transition is the one that is taken when its source is entered.
std::optional<bool> EndlessChains::isTakenOnEntry(std::size_t transition)
{
    const ChartState& source = m_chart.states()[m_chart.transitions()[transition].source];
    for (const std::size_t each : source.transitions) {
        spend(1);
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
        std::vector<std::size_t> way = m_run.wayRound(transition, m_allowance + m_stock);
        spend(m_run.steps());
        if (keep(std::move(way)))
            return true;
    }
    const std::optional<StandingThing> wanted = m_world.wanted();
    if (!wanted)
        return false;
    const std::vector<double> candidates = m_world.candidatesFor(*wanted);
    spend(candidates.size()); // as many as pins that are asked for edges
    for (const double value : candidates) {
        if (m_allowance + m_stock == 0)
            return false;
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
    const std::size_t before = m_world.evaluationSteps();
    const std::optional<bool> holds = m_world.holds(m_chart.transitions()[transition]);
    spend(1 + m_world.evaluationSteps() - before);
    return holds;
}

void EndlessChains::spend(std::size_t steps)
{
    m_steps += steps;
    const std::size_t own = std::min(steps, m_allowance);
    m_allowance -= own;
    m_stock -= std::min(steps - own, m_stock);
}
