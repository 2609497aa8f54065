#include "statechart/runtime/compoundstate.h"

CompoundState::~CompoundState() = default;

int CompoundState::type() const
{
    return compound;
}
