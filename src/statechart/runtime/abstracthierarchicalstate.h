#ifndef ABSTRACTHIERARCHICALSTATE_H
#define ABSTRACTHIERARCHICALSTATE_H

#include "statechart/runtime/abstractstate.h"

/// A state with states inside. It is active as long as one of its descendants is.
class HALVWIDGETS_EXPORT AbstractHierarchicalState : public AbstractState
{
public:
    using AbstractState::AbstractState;
    ~AbstractHierarchicalState() override;

    std::vector<std::shared_ptr<AbstractState>> substates;
};

#endif
