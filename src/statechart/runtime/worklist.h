#ifndef WORKLIST_H
#define WORKLIST_H

#include "statechart/runtime/abstractstate.h"

#include <algorithm>

/// The states that are still to be tried for an event, the deepest first, and of equally deep ones the one
/// that was added first.
class Worklist
{
public:
    bool empty() const { return m_states.empty(); }
    void clear() { m_states.clear(); }

    /// The state must not be there yet.
    void addNew(const AbstractState& state) { m_states.insert(firstOfDepth(state.depth()), &state); }

    /// Nothing happens when it is there already.
    void add(const AbstractState& state)
    {
        const auto place = firstOfDepth(state.depth());
        for (auto same = place; same != m_states.end() && (*same)->depth() == state.depth(); ++same)
            if (*same == &state)
                return;
        m_states.insert(place, &state);
    }

    const AbstractState& takeNext()
    {
        const AbstractState* const next = m_states.back();
        m_states.pop_back();
        return *next;
    }

    template <class Predicate>
    void removeIf(Predicate predicate)
    {
        std::erase_if(m_states, [&](const AbstractState* state) { return predicate(*state); });
    }

private:
    std::vector<const AbstractState*>::iterator firstOfDepth(int depth)
    {
        return std::find_if(m_states.begin(), m_states.end(),
                            [&](const AbstractState* other) { return other->depth() >= depth; });
    }

    std::vector<const AbstractState*> m_states; // ascending by depth, the next one last
};

#endif
