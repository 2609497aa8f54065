#ifndef ABSTRACTSTATE_H
#define ABSTRACTSTATE_H

#include "halvwidgetsexport.h"
#include "statechart/runtime/transition.h"

/// A state of a linked chart. States belong to their StateChart: they refer to each other in circles, which
/// the chart undoes in the end. While a chart runs nothing in a state
/// changes but the variables of its actions.
class HALVWIDGETS_EXPORT AbstractState : public std::enable_shared_from_this<AbstractState>
{
public:
    enum Type : int
    {
        atomic = 0,
        compound = 1,
        parallel = 2,
    };

    /// @param parent null for a state of the top level
    AbstractState(std::string identifier, std::shared_ptr<AbstractState> parent);
    AbstractState(const AbstractState&) = delete;
    AbstractState& operator=(const AbstractState&) = delete;
    virtual ~AbstractState();

    /// One of Type.
    virtual int type() const = 0;

    const std::string identifier; ///< empty for the one that a chart begins in
    std::shared_ptr<AbstractState> parent;
    std::vector<Transition> transitions; ///< in the order in which they are tried
    std::vector<LinkedStatements> entryActions;
    std::vector<LinkedStatements> exitActions;

    /// The number of states around this one.
    int depth() const { return m_depth; }

    /// Whether `other` is a state around this one. Takes steps as the logarithm of the depth.
    bool isProperDescendantOf(const AbstractState& other) const;

    /// Lets go of the states around it and of those that its transitions refer to.
    void detach();

private:
    int m_depth = 0;

    /// A state around this one, this one itself at the top level. The distances are chosen so that jumps and
    /// single steps lead to the ancestor at any depth in few steps.
    const AbstractState* m_jump = this;
};

#endif
