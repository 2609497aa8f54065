#include "statechart/runtime/abstractstate.h"

AbstractState::AbstractState(std::string stateIdentifier, std::shared_ptr<AbstractState> parentState)
    : identifier(std::move(stateIdentifier)), parent(std::move(parentState))
{
    if (!parent)
        return;
    m_depth = parent->m_depth + 1;
    const AbstractState* const near = parent->m_jump;
    const AbstractState* const far = near->m_jump;
    const bool lengthsAreEqual = parent->m_depth - near->m_depth == near->m_depth - far->m_depth;
    m_jump = lengthsAreEqual ? far : parent.get();
}

AbstractState::~AbstractState() = default;

bool AbstractState::isProperDescendantOf(const AbstractState& other) const
{
    const AbstractState* state = this;
    while (state->m_depth > other.m_depth)
        state = state->m_jump->m_depth >= other.m_depth ? state->m_jump : state->parent.get();
    return state == &other && state != this;
}

void AbstractState::detach()
{
    transitions.clear();
    parent.reset();
    m_depth = 0;
    m_jump = this;
}
