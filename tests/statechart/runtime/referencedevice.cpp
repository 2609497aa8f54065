#include "referencedevice.h"

#include "statechart/text/format.h"
#include "traceactor.h"

#include <algorithm>

ReferenceDevice::ReferenceDevice(const ChartPlan& plan, Answers answers, int entriesLeft)
    : m_answers(answers), m_entriesLeft(entriesLeft)
{
    State* start = nullptr;
    for (const PlannedState& top : plan.states) {
        State* const state = link(top, nullptr);
        if (top.identifier == plan.start)
            start = state;
    }
    for (const PlannedState& top : plan.states)
        linkTransitions(top);
    for (const auto& [identifier, state] : m_states) {
        std::stable_sort(state->transitions.begin(), state->transitions.end(),
                         [](const Transition& left, const Transition& right) {
                             return left.plan->order < right.plan->order;
                         });
    }
    m_initialTransitionPlan.event = "init";
    m_owned.push_back(std::make_unique<State>(State{&m_initialPlan, nullptr, {}, {}}));
    m_initialState = m_owned.back().get();
    m_initialState->transitions.push_back({&m_initialTransitionPlan, m_initialState, start});
}

ReferenceDevice::State* ReferenceDevice::link(const PlannedState& plan, State* parent)
{
    m_owned.push_back(std::make_unique<State>(State{&plan, parent, {}, {}}));
    State* const state = m_owned.back().get();
    for (const PlannedState& substate : plan.substates)
        state->substates.push_back(link(substate, state));
    m_states.emplace(plan.identifier, state); // the first of an identifier stays
    return state;
}

void ReferenceDevice::linkTransitions(const PlannedState& plan)
{
    // the compiled form has the transitions of what is inside a state before its own
    for (const PlannedState& substate : plan.substates)
        linkTransitions(substate);
    for (const PlannedTransition& transition : plan.transitions) {
        State* const source = m_states.at(plan.identifier);
        source->transitions.push_back({&transition, source, m_states.at(transition.target)});
    }
}

int ReferenceDevice::depth(const State* state)
{
    int parents = 0;
    for (const State* parent = state->parent; parent != nullptr; parent = parent->parent)
        ++parents;
    return parents;
}

bool ReferenceDevice::isProperDescendant(const State* candidate, const State* ancestor)
{
    for (const State* parent = candidate->parent; parent != nullptr; parent = parent->parent)
        if (parent == ancestor)
            return true;
    return false;
}

bool ReferenceDevice::isActive(const State* state) const
{
    for (const State* active : m_active) {
        if (state->plan->kind == PlannedKind::atomic ? active == state : isProperDescendant(active, state))
            return true;
    }
    return false;
}

void ReferenceDevice::start()
{
    m_active.clear();
    m_active.push_back(m_initialState);
    dispatch({PlannedEvent::Kind::initialisation, "", 0});
}

bool ReferenceDevice::eventMatches(const Transition& transition, const PlannedEvent& event) const
{
    const std::optional<std::string>& trigger = transition.plan->event;
    switch (event.kind) {
    case PlannedEvent::Kind::named:
        return trigger && *trigger == event.name;
    case PlannedEvent::Kind::change:
        return trigger && *trigger == "change";
    case PlannedEvent::Kind::initialisation:
        return trigger && *trigger == "init";
    case PlannedEvent::Kind::wake:
        const auto wake = m_pendingWakes.find(event.wakeIdentifier);
        return wake != m_pendingWakes.end() && wake->second == &transition;
    }
    return false;
}

bool ReferenceDevice::conditionsHold(const Transition& transition)
{
    for (const std::string& pin : transition.plan->conditions) {
        trace.push_back("isPinHigh(" + pin + ")");
        if (!m_answers.isHigh())
            return false;
    }
    return true;
}

void ReferenceDevice::dispatch(const PlannedEvent& event)
{
    dispatchInBase(event);
    for (State* state : m_newlyEntered) {
        for (const Transition& transition : state->transitions) {
            if (!transition.plan->hasWakeTime)
                continue;
            const std::uint64_t wake = m_nextWakeIdentifier++;
            trace.push_back("getParameter_double(" + transition.plan->identifier + ")");
            const double time = m_answers.time();
            trace.push_back(formatText("scheduleWake({}, {})", time, wake));
            m_pendingWakes[wake] = &transition;
        }
    }
    m_newlyEntered.clear();
}

void ReferenceDevice::dispatchInBase(const PlannedEvent& event)
{
    States worklist = m_active;
    States handled;
    while (!worklist.empty()) {
        const auto deepest =
            std::max_element(worklist.begin(), worklist.end(), [](const State* left, const State* right) {
                return depth(left) < depth(right);
            });
        State* const state = *deepest;
        worklist.erase(deepest);

        if (const Transition* const transition = firstMatch(*state, event)) {
            handled.push_back(state);
            execute(*transition);
        } else if (std::find(worklist.begin(), worklist.end(), state->parent) == worklist.end()) {
            worklist.push_back(state->parent);
        }
        std::erase_if(worklist, [&](const State* other) {
            return other == nullptr || !isActive(other) ||
                   std::any_of(handled.begin(), handled.end(),
                               [&](const State* done) { return isProperDescendant(done, other); });
        });
    }
}

const ReferenceDevice::Transition* ReferenceDevice::firstMatch(const State& state, const PlannedEvent& event)
{
    for (const Transition& transition : state.transitions)
        if (eventMatches(transition, event) && conditionsHold(transition))
            return &transition;
    return nullptr;
}

void ReferenceDevice::execute(const Transition& transition)
{
    if (!isActive(transition.source))
        return;
    for (State* state = transition.source; state != nullptr; state = state->parent) {
        if (isProperDescendant(transition.target, state))
            break;
        print("out", state->plan->identifier, state->plan->exitActions);
        if (state->plan->kind == PlannedKind::atomic)
            std::erase(m_active, state);
        else
            std::erase_if(m_active, [&](const State* active) { return isProperDescendant(active, state); });
        stateExited(state);
    }
    print("take", transition.plan->identifier, transition.plan->actions);

    States entering;
    std::vector<const Transition*> pending;
    enter(transition.target, entering, pending);
    for (auto next = pending.rbegin(); next != pending.rend(); ++next)
        execute(**next);
}

void ReferenceDevice::enter(State* state, States& entering, std::vector<const Transition*>& pending)
{
    if (std::find(entering.begin(), entering.end(), state) != entering.end())
        return;
    entering.push_back(state);
    stateEntered(state);
    print("in", state->plan->identifier, state->plan->entryActions);
    if (state->plan->kind == PlannedKind::atomic &&
        std::find(m_active.begin(), m_active.end(), state) == m_active.end())
        m_active.push_back(state);

    const Transition* spontaneous = nullptr;
    for (const Transition& transition : state->transitions) {
        if (!transition.plan->event && conditionsHold(transition)) {
            spontaneous = &transition;
            break;
        }
    }
    if (spontaneous != nullptr) {
        pending.push_back(spontaneous);
    } else {
        for (State* substate : state->substates)
            if (state->plan->kind == PlannedKind::parallel ||
                substate->plan->identifier == state->plan->initial)
                enter(substate, entering, pending);
    }
    std::erase(entering, state);
}

void ReferenceDevice::stateEntered(State* state)
{
    for (const Transition& transition : state->transitions) {
        if (transition.plan->hasWakeTime) {
            m_newlyEntered.push_back(state);
            break;
        }
    }
    trace.push_back("enter " + state->plan->identifier);
    if (--m_entriesLeft < 0)
        throw EndlessRun();
}

void ReferenceDevice::stateExited(State* state)
{
    std::erase_if(m_pendingWakes, [&](const auto& wake) { return wake.second->source == state; });
    std::erase(m_newlyEntered, state);
    trace.push_back("exit " + state->plan->identifier);
}

void ReferenceDevice::print(const std::string& what, const std::string& owner, int count)
{
    for (int number = 0; number < count; ++number)
        trace.push_back("print(" + printedText(what, owner, number) + ")");
}

ReferenceDevice::Trace ReferenceDevice::active() const
{
    Trace names;
    for (const State* state : m_active)
        names.push_back(state->plan->identifier);
    return names;
}

std::map<std::uint64_t, std::string> ReferenceDevice::pendingWakes() const
{
    std::map<std::uint64_t, std::string> wakes;
    for (const auto& [identifier, transition] : m_pendingWakes)
        wakes.emplace(identifier, transition->plan->identifier);
    return wakes;
}
