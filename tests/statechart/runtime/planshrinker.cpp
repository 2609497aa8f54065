#include "planshrinker.h"

#include <algorithm>

namespace {

using Plans = std::vector<ChartPlan>;

/// Calls `visit` with every list of siblings, the outer ones first.
template <class Visit>
void visitLists(std::vector<PlannedState>& states, const Visit& visit)
{
    visit(states);
    for (PlannedState& state : states)
        visitLists(state.substates, visit);
}

bool hasState(const std::vector<PlannedState>& states, const std::string& identifier)
{
    return std::any_of(states.begin(), states.end(), [&](const PlannedState& state) {
        return state.identifier == identifier || hasState(state.substates, identifier);
    });
}

/// Takes out what refers to a state that is not there any more.
void mend(ChartPlan& plan)
{
    const auto isListed = [](const std::vector<PlannedState>& states, const std::string& identifier) {
        return std::any_of(states.begin(), states.end(),
                           [&](const PlannedState& state) { return state.identifier == identifier; });
    };
    if (!isListed(plan.states, plan.start))
        plan.start = plan.states.front().identifier;
    visitLists(plan.states, [&](std::vector<PlannedState>& states) {
        for (PlannedState& state : states) {
            std::erase_if(state.transitions, [&](const PlannedTransition& transition) {
                return !hasState(plan.states, transition.target);
            });
            if (state.kind != PlannedKind::compound)
                continue;
            if (state.substates.empty())
                state.kind = PlannedKind::atomic;
            else if (!isListed(state.substates, state.initial))
                state.initial = state.substates.front().identifier;
        }
    });
}

/// A plan for each list of siblings and each place in it, less what stands there.
void withoutStates(ChartPlan plan, Plans& plans)
{
    visitLists(plan.states, [&](std::vector<PlannedState>& states) {
        for (std::size_t index = 0; index < states.size(); ++index) {
            if (&states == &plan.states && states.size() == 1)
                continue;
            const std::vector<PlannedState> whole = states;
            states.erase(states.begin() + static_cast<std::ptrdiff_t>(index));
            plans.push_back(plan);
            mend(plans.back());
            states = whole;
        }
    });
}

/// A plan for each element of a list, less that element.
template <class T>
void withoutElements(const ChartPlan& plan, std::vector<T>& list, Plans& plans)
{
    for (std::size_t index = 0; index < list.size(); ++index) {
        const std::vector<T> whole = list;
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
        plans.push_back(plan);
        list = whole;
    }
}

void withFewer(const ChartPlan& plan, int& count, Plans& plans)
{
    if (count == 0)
        return;
    --count;
    plans.push_back(plan);
    ++count;
}

void withoutParts(ChartPlan plan, Plans& plans)
{
    visitLists(plan.states, [&](std::vector<PlannedState>& states) {
        for (PlannedState& state : states) {
            withoutElements(plan, state.transitions, plans);
            withFewer(plan, state.entryActions, plans);
            withFewer(plan, state.exitActions, plans);
            for (PlannedTransition& transition : state.transitions) {
                withoutElements(plan, transition.conditions, plans);
                withFewer(plan, transition.actions, plans);
            }
        }
    });
}

Plans smallerOnes(ChartPlan plan)
{
    Plans plans;
    withoutElements(plan, plan.events, plans);
    withoutStates(plan, plans);
    withoutParts(plan, plans);
    return plans;
}

} // namespace

ChartPlan shrunk(ChartPlan plan, const std::function<bool(const ChartPlan&)>& fails)
{
    for (;;) {
        Plans plans = smallerOnes(plan);
        const auto smaller = std::find_if(plans.begin(), plans.end(), fails);
        if (smaller == plans.end())
            return plan;
        plan = std::move(*smaller);
    }
}
