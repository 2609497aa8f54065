#ifndef ATOMICSTATE_H
#define ATOMICSTATE_H

#include "statechart/runtime/abstractstate.h"

/// A state without states inside. Only these stand in an actor's active list.
class HALVWIDGETS_EXPORT AtomicState : public AbstractState
{
public:
    using AbstractState::AbstractState;
    ~AtomicState() override;

    int type() const override;
};

#endif
