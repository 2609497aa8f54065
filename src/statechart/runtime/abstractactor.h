#ifndef ABSTRACTACTOR_H
#define ABSTRACTACTOR_H

#include "actionlanguage/runtime/executioninterface.h"
#include "statechart/runtime/abstractactorobserver.h"
#include "statechart/runtime/abstractevent.h"
#include "statechart/runtime/statechart.h"
#include "statechart/runtime/worklist.h"

/// Runs a chart: holds the states that are active, and takes events one at a time, each to its end.
///
///     actor.start();              // enters the chart's start state
///     actor.dispatch(event);      // and so on
///
/// The chart must be a linked one. Variables of its actions are in the chart: actors that share one share
/// those too. An actor belongs to one thread. An exception that an action or a condition raises goes out
/// through dispatch(), and the active states stay as they were at that moment. Transitions without an event
/// may follow each other for ever, and take stack for each: whoever runs charts of others counts in
/// stateEntered(). docs/decisions/charts-that-differ.md says where the rules are not those of textbooks.
class HALVWIDGETS_EXPORT AbstractActor : public AbstractExecutionInterface
{
public:
    /// In no state until start().
    explicit AbstractActor(std::shared_ptr<const StateChart> chart);
    AbstractActor(const AbstractActor&) = delete;
    AbstractActor& operator=(const AbstractActor&) = delete;
    ~AbstractActor() override;

    /// What it runs.
    virtual const StateChart& chart() const;

    /// Whether the event triggers the transition. Here: the initialisation triggers "init".
    virtual bool eventMatches(const Transition& transition, const AbstractEvent& event);

    /// Processes one event. Each active branch takes one transition at most, the innermost that the event
    /// triggers and whose conditions hold.
    virtual void dispatch(const AbstractEvent& event);

    /// Begins a run.
    virtual void start();

    /// Told before the entry actions of a state, and after its exit actions. A state that is left because
    /// one around it is left has no exit actions run, and nothing is told of it.
    virtual void stateEntered(const std::shared_ptr<AbstractState>& state);
    virtual void stateExited(const std::shared_ptr<AbstractState>& state);

    /// The atomic states that are active, in the order in which they became so.
    const std::vector<std::shared_ptr<AbstractState>>& activeStates() const { return m_active; }

    /// An atomic state is active when it is in the list, any other when one of its descendants is.
    bool isActive(const AbstractState& state) const;

    /// The observer must outlive its use; null for none.
    void setObserver(AbstractActorObserver* observer) { m_observer = observer; }

protected:
    AbstractActorObserver* observer() const { return m_observer; }

private:
    /// What a dispatch works with, kept from event to event for its memory.
    struct DispatchLists
    {
        Worklist worklist;
        std::vector<const AbstractState*> handled; // those whose transition was taken
    };

    const Transition* triggeredTransition(const AbstractState& state, const AbstractEvent& event);
    const Transition* pendingTransition(const AbstractState& state);
    bool conditionsHold(const Transition& transition);
    bool conditionHolds(const Transition& transition, std::size_t index);

    void execute(const Transition& transition);
    void exitFrom(const Transition& transition);
    void removeActive(const AbstractState& state);
    /// @param firstEntering where the states that this entering has on its way begin in m_entering
    void enter(const std::shared_ptr<AbstractState>& state, std::size_t firstEntering);
    void enterSubstates(const AbstractState& state, std::size_t firstEntering);
    void run(const std::vector<LinkedStatements>& actions, ActorCode::Kind kind, const AbstractState* state,
             const Transition* transition);

    const std::shared_ptr<const StateChart> m_chart;
    std::vector<std::shared_ptr<AbstractState>> m_active;
    DispatchLists m_lists;
    std::vector<const Transition*> m_pending;     // a stack that all transitions in progress share
    std::vector<const AbstractState*> m_entering; // a stack, likewise: those that are being entered
    std::uint64_t m_removals = 0;                 // from m_active: how often there were any
    AbstractActorObserver* m_observer = nullptr;
};

#endif
