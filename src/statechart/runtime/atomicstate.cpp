#include "statechart/runtime/atomicstate.h"

AtomicState::~AtomicState() = default;

int AtomicState::type() const
{
    return atomic;
}
