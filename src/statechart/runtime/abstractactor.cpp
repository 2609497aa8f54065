#include "statechart/runtime/abstractactor.h"

#include "statechart/runtime/compoundstate.h"
#include "statechart/runtime/initialisationevent.h"

#include <utility>

namespace {

bool isAncestorOfOne(const AbstractState& state, const std::vector<const AbstractState*>& others)
{
    return std::any_of(others.begin(), others.end(),
                       [&](const AbstractState* other) { return other->isProperDescendantOf(state); });
}

/// Cuts a list back to the length that it had.
template <class T>
class LengthGuard
{
public:
    explicit LengthGuard(std::vector<T>& list) : m_list(list), m_length(list.size()) {}
    LengthGuard(const LengthGuard&) = delete;
    LengthGuard& operator=(const LengthGuard&) = delete;
    ~LengthGuard() { m_list.resize(m_length); }

    bool hasGrown() const { return m_list.size() > m_length; }

private:
    std::vector<T>& m_list;
    std::size_t m_length;
};

} // namespace

AbstractActor::AbstractActor(std::shared_ptr<const StateChart> chart) : m_chart(std::move(chart)) {}

AbstractActor::~AbstractActor() = default;

const StateChart& AbstractActor::chart() const
{
    return *m_chart;
}

bool AbstractActor::eventMatches(const Transition& transition, const AbstractEvent& event)
{
    return event.type() == AbstractEvent::initialisation && transition.event == "init";
}

void AbstractActor::start()
{
    m_active.clear();
    m_active.push_back(m_chart->initialState);
    dispatch(InitialisationEvent());
}

void AbstractActor::stateEntered(const std::shared_ptr<AbstractState>&) {}

void AbstractActor::stateExited(const std::shared_ptr<AbstractState>&) {}

bool AbstractActor::isActive(const AbstractState& state) const
{
    const bool isAtomic = state.type() == AbstractState::atomic;
    return std::any_of(m_active.begin(), m_active.end(), [&](const std::shared_ptr<AbstractState>& active) {
        return isAtomic ? active.get() == &state : active->isProperDescendantOf(state);
    });
}

void AbstractActor::dispatch(const AbstractEvent& event)
{
    // Taken out, so that a dispatch from within another, or an exception, does no harm.
    DispatchLists lists = std::exchange(m_lists, {});
    for (const std::shared_ptr<AbstractState>& state : m_active)
        lists.worklist.addNew(*state);

    while (!lists.worklist.empty()) {
        const AbstractState& state = lists.worklist.takeNext();
        const std::uint64_t removals = m_removals;
        const Transition* const transition = triggeredTransition(state, event);
        if (transition != nullptr) {
            lists.handled.push_back(&state);
            execute(*transition);
        } else if (state.parent && !isAncestorOfOne(*state.parent, lists.handled)) {
            lists.worklist.add(*state.parent);
        }
        // What is in the list was active when this was looked at last. A condition that dispatches an event
        // of its own changes that, too.
        if (transition != nullptr || m_removals != removals) {
            lists.worklist.removeIf([&](const AbstractState& other) {
                return !isActive(other) || isAncestorOfOne(other, lists.handled);
            });
        }
    }
    lists.handled.clear();
    m_lists = std::move(lists);
}

const Transition* AbstractActor::triggeredTransition(const AbstractState& state, const AbstractEvent& event)
{
    for (const Transition& transition : state.transitions)
        if (eventMatches(transition, event) && conditionsHold(transition))
            return &transition;
    return nullptr;
}

const Transition* AbstractActor::pendingTransition(const AbstractState& state)
{
    for (const Transition& transition : state.transitions)
        if (!transition.event && conditionsHold(transition))
            return &transition;
    return nullptr;
}

bool AbstractActor::conditionsHold(const Transition& transition)
{
    for (std::size_t index = 0; index < transition.conditions.size(); ++index)
        if (!conditionHolds(transition, index))
            return false;
    return true;
}

bool AbstractActor::conditionHolds(const Transition& transition, std::size_t index)
{
    if (m_observer != nullptr)
        m_observer->codeBegins({ActorCode::Kind::condition, index, nullptr, &transition});
    const bool holds = transition.conditions[index]->evaluate(*this);
    if (m_observer != nullptr)
        m_observer->conditionTested(transition, index, holds);
    return holds;
}

void AbstractActor::execute(const Transition& transition)
{
    if (!isActive(*transition.source))
        return;
    if (m_observer != nullptr)
        m_observer->transitionTaken(transition);
    exitFrom(transition);
    run(transition.actions, ActorCode::Kind::transitionAction, nullptr, &transition);

    const LengthGuard guard(m_pending);
    enter(transition.target, m_entering.size());
    while (guard.hasGrown()) {
        const Transition& pending = *m_pending.back();
        m_pending.pop_back();
        execute(pending);
    }
}

void AbstractActor::exitFrom(const Transition& transition)
{
    const std::shared_ptr<AbstractState>* state = &transition.source;
    while (*state && !transition.target->isProperDescendantOf(**state)) {
        run((*state)->exitActions, ActorCode::Kind::exitAction, state->get(), nullptr);
        removeActive(**state);
        stateExited(*state);
        state = &(*state)->parent;
    }
}

void AbstractActor::removeActive(const AbstractState& state)
{
    ++m_removals;
    const bool isAtomic = state.type() == AbstractState::atomic;
    std::erase_if(m_active, [&](const std::shared_ptr<AbstractState>& active) {
        return isAtomic ? active.get() == &state : active->isProperDescendantOf(state);
    });
}

void AbstractActor::enter(const std::shared_ptr<AbstractState>& state, std::size_t firstEntering)
{
    if (std::find(m_entering.begin() + static_cast<std::ptrdiff_t>(firstEntering), m_entering.end(),
                  state.get()) != m_entering.end())
        return; // a chart that nobody linked may lead in circles
    const LengthGuard guard(m_entering);
    m_entering.push_back(state.get());
    stateEntered(state);
    run(state->entryActions, ActorCode::Kind::entryAction, state.get(), nullptr);
    const bool isAtomic = state->type() == AbstractState::atomic;
    if (isAtomic && std::find(m_active.begin(), m_active.end(), state) == m_active.end())
        m_active.push_back(state);
    if (const Transition* const transition = pendingTransition(*state))
        m_pending.push_back(transition);
    else if (!isAtomic)
        enterSubstates(*state, firstEntering);
}

void AbstractActor::enterSubstates(const AbstractState& state, std::size_t firstEntering)
{
    if (state.type() == AbstractState::compound) {
        enter(static_cast<const CompoundState&>(state).initialSubstate, firstEntering);
        return;
    }
    for (const std::shared_ptr<AbstractState>& substate :
         static_cast<const AbstractHierarchicalState&>(state).substates)
        enter(substate, firstEntering);
}

void AbstractActor::run(const std::vector<LinkedStatements>& actions, ActorCode::Kind kind,
                        const AbstractState* state, const Transition* transition)
{
    for (std::size_t index = 0; index < actions.size(); ++index) {
        if (m_observer != nullptr)
            m_observer->codeBegins({kind, index, state, transition});
        actions[index].execute(*this);
    }
}
