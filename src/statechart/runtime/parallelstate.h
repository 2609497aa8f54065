#ifndef PARALLELSTATE_H
#define PARALLELSTATE_H

#include "statechart/runtime/abstracthierarchicalstate.h"

/// All of its substates, the regions, are entered with it.
class HALVWIDGETS_EXPORT ParallelState : public AbstractHierarchicalState
{
public:
    using AbstractHierarchicalState::AbstractHierarchicalState;
    ~ParallelState() override;

    int type() const override;
};

#endif
