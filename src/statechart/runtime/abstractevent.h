#ifndef ABSTRACTEVENT_H
#define ABSTRACTEVENT_H

#include "halvwidgetsexport.h"

/// Something that an actor is told of.
class HALVWIDGETS_EXPORT AbstractEvent
{
public:
    /// What type() gives. The class of an input change belongs to the simulator.
    enum Type : int
    {
        initialisation = 1,
        inputChange = 2,
        wakeRequested = 3,
    };

    AbstractEvent() = default;
    AbstractEvent(const AbstractEvent&) = default;
    AbstractEvent& operator=(const AbstractEvent&) = default;
    virtual ~AbstractEvent();

    /// One of Type, or a number of a derived class's own. An event whose number is wakeRequested must be a
    /// WakeRequestedEvent.
    virtual int type() const = 0;
};

#endif
