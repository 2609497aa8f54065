#include "statechart/check/chainrun.h"

#include <algorithm>

using Type = ChartState::Type;

std::vector<std::size_t> ChainRun::wayRound(std::size_t first, std::size_t limit)
{
    m_steps = 0;
    m_active = {m_chart.transitions()[first].source};
    m_frames.clear();
    m_taken.clear();
    if (!execute(first))
        return {};
    while (!m_frames.empty() && m_steps <= limit) {
        Frame& frame = m_frames.back();
        if (frame.pending.empty()) {
            m_taken.erase(frame.transition);
            m_frames.pop_back();
            continue;
        }
        const std::size_t transition = frame.pending.back(); // the last one first
        frame.pending.pop_back();
        if (!isActive(m_chart.transitions()[transition].source))
            continue;
        if (const auto taken = m_taken.find(transition); taken != m_taken.end() && taken->second == m_active)
            return wayFrom(transition);
        if (!execute(transition))
            return {};
    }
    return {};
}

std::vector<std::size_t> ChainRun::wayFrom(std::size_t transition) const
{
    std::vector<std::size_t> way;
    for (auto frame = m_frames.rbegin(); frame != m_frames.rend(); ++frame) {
        way.push_back(frame->transition);
        if (frame->transition == transition)
            break;
    }
    std::ranges::reverse(way);
    return way;
}

bool ChainRun::execute(std::size_t index)
{
    const ChartTransition& transition = m_chart.transitions()[index];
    if (!transition.target)
        return false;
    m_steps += 1 + m_active.size();
    m_taken[index] = m_active;
    exit(transition);
    m_frames.push_back({index, {}});
    return enter(*transition.target, m_frames.back().pending);
}

bool ChainRun::isInside(std::size_t state, std::size_t outer) const
{
    std::optional<std::size_t> parent = m_chart.states()[state].parent;
    while (parent && *parent != outer)
        parent = m_chart.states()[*parent].parent;
    return parent.has_value();
}

bool ChainRun::isActive(std::size_t state)
{
    if (m_chart.states()[state].type == Type::atomic)
        return m_active.contains(state);
    m_steps += m_active.size();
    return std::ranges::any_of(m_active, [&](std::size_t active) { return isInside(active, state); });
}

/// From the source outwards up to the first state that the target is in.
void ChainRun::exit(const ChartTransition& transition)
{
    std::optional<std::size_t> outermost;
    std::optional<std::size_t> state = transition.source;
    while (state && !isInside(*transition.target, *state)) {
        outermost = state;
        state = m_chart.states()[*state].parent;
    }
    if (!outermost)
        return;
    std::erase_if(m_active,
                  [&](std::size_t active) { return active == *outermost || isInside(active, *outermost); });
}

bool ChainRun::enter(std::size_t index, std::vector<std::size_t>& pending)
{
    ++m_steps;
    const ChartState& state = m_chart.states()[index];
    if (state.type == Type::unknown)
        return false;
    if (state.type == Type::atomic)
        m_active.insert(index);
    for (const std::size_t transition : state.transitions) {
        if (m_chart.transitions()[transition].hasEvent())
            continue;
        const std::optional<bool> holds = m_conditions(transition);
        if (!holds)
            return false;
        if (*holds) {
            pending.push_back(transition);
            return true;
        }
    }
    return enterSubstates(state, pending);
}

bool ChainRun::enterSubstates(const ChartState& state, std::vector<std::size_t>& pending)
{
    if (state.type == Type::compound)
        return state.initial && enter(*state.initial, pending);
    return std::ranges::all_of(state.children, [&](std::size_t child) { return enter(child, pending); });
}
