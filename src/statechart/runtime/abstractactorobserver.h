#ifndef ABSTRACTACTOROBSERVER_H
#define ABSTRACTACTOROBSERVER_H

#include "halvwidgetsexport.h"

#include <cstddef>
#include <cstdint>

class AbstractState;
struct Transition;

/// A piece of code in a chart. Of `state` and `transition` the one that owns the code is set.
struct ActorCode
{
    enum class Kind : std::uint8_t
    {
        entryAction,
        exitAction,
        condition,
        transitionAction,
        wakeTime,
    };

    Kind kind;
    std::size_t index; ///< in the list that it stands in
    const AbstractState* state;
    const Transition* transition;
};

/// Looks on while an actor runs, for traces, for coverage, and to know what was running when something went
/// wrong. It must not touch the actor. States that are entered and left come from the actor's own
/// operations.
class HALVWIDGETS_EXPORT AbstractActorObserver
{
public:
    AbstractActorObserver() = default;
    AbstractActorObserver(const AbstractActorObserver&) = delete;
    AbstractActorObserver& operator=(const AbstractActorObserver&) = delete;
    virtual ~AbstractActorObserver();

    /// Before the first state is left. A transition whose source was left before is not taken.
    virtual void transitionTaken(const Transition& transition);

    /// Before a condition, an action or a wake time runs. When an exception of a device's code leaves the
    /// actor, the code that began last raised it; the actor's own operations, such as stateEntered(), may
    /// raise others.
    virtual void codeBegins(const ActorCode& code);

    virtual void conditionTested(const Transition& transition, std::size_t index, bool holds);
};

#endif
