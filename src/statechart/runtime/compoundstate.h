#ifndef COMPOUNDSTATE_H
#define COMPOUNDSTATE_H

#include "statechart/runtime/abstracthierarchicalstate.h"

/// One of its substates is entered with it.
class HALVWIDGETS_EXPORT CompoundState : public AbstractHierarchicalState
{
public:
    using AbstractHierarchicalState::AbstractHierarchicalState;
    ~CompoundState() override;

    int type() const override;

    std::shared_ptr<AbstractState> initialSubstate;
};

#endif
