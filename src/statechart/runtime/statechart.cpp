#include "statechart/runtime/statechart.h"

#include "statechart/runtime/compoundstate.h"

namespace {

/// What is inside a state, or null for an atomic one.
AbstractHierarchicalState* hierarchyOf(AbstractState& state)
{
    return state.type() == AbstractState::atomic ? nullptr : static_cast<AbstractHierarchicalState*>(&state);
}

} // namespace

StateChart::~StateChart()
{
    for (const std::shared_ptr<AbstractState>& state : allStates()) {
        state->detach();
        if (AbstractHierarchicalState* const hierarchy = hierarchyOf(*state))
            hierarchy->substates.clear();
        if (state->type() == AbstractState::compound)
            static_cast<CompoundState&>(*state).initialSubstate.reset();
    }
    if (initialState)
        initialState->detach();
}

std::vector<std::shared_ptr<AbstractState>> StateChart::allStates() const
{
    std::vector<std::shared_ptr<AbstractState>> all = states;
    for (std::size_t index = 0; index < all.size(); ++index) {
        const AbstractHierarchicalState* const hierarchy = hierarchyOf(*all[index]);
        if (hierarchy != nullptr)
            all.insert(all.end(), hierarchy->substates.begin(), hierarchy->substates.end());
    }
    return all;
}
