#include "reports/activelevels.h"

#include "statechart/runtime/abstracthierarchicalstate.h"

#include <algorithm>

ActiveLevels::ActiveLevels(const StateChart& chart)
{
    m_levels.push_back({nullptr});
    m_indexes.emplace(nullptr, 0);
    add(chart.states);
}

void ActiveLevels::add(const std::vector<std::shared_ptr<AbstractState>>& states)
{
    for (const std::shared_ptr<AbstractState>& state : states) {
        if (state->type() == AbstractState::atomic)
            continue;
        if (state->type() == AbstractState::compound) {
            m_indexes.emplace(state.get(), m_levels.size());
            m_levels.push_back({state.get()});
        }
        add(static_cast<const AbstractHierarchicalState&>(*state).substates);
    }
}

std::vector<std::string>
ActiveLevels::active(const std::vector<std::shared_ptr<AbstractState>>& activeStates) const
{
    std::vector<std::string> result(m_levels.size());
    std::vector<const AbstractState*> seen;
    for (const std::shared_ptr<AbstractState>& leaf : activeStates) {
        for (const AbstractState* state = leaf.get(); state != nullptr; state = state->parent.get()) {
            if (std::ranges::find(seen, state) != seen.end())
                break; // what is around it is known already
            seen.push_back(state);
            const auto level = m_indexes.find(state->parent.get());
            if (level == m_indexes.end())
                continue; // a region: it is active with the parallel state around it
            std::string& text = result[level->second];
            text += (text.empty() ? "" : "+") + state->identifier;
        }
    }
    return result;
}

std::string nameOf(const ActiveLevels::Level& level)
{
    return level.owner == nullptr ? "chart" : level.owner->identifier;
}

std::vector<const AbstractState*> statesAround(const ActiveLevels::Level& level)
{
    std::vector<const AbstractState*> states;
    if (level.owner == nullptr)
        return states;
    for (const AbstractState* state = level.owner->parent.get(); state != nullptr;
         state = state->parent.get())
        states.push_back(state);
    std::ranges::reverse(states);
    return states;
}
