#include "statechart/runtime/initialisationevent.h"

InitialisationEvent::~InitialisationEvent() = default;

int InitialisationEvent::type() const
{
    return initialisation;
}
