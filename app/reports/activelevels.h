#ifndef ACTIVELEVELS_H
#define ACTIVELEVELS_H

#include "statechart/runtime/statechart.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// The levels of a chart on which one state is active at a time: the top level, and the inside of every
/// compound state, regions of parallel states among them.
class ActiveLevels
{
public:
    struct Level
    {
        const AbstractState* owner; ///< null for the top level
    };

    ActiveLevels() = default;
    explicit ActiveLevels(const StateChart& chart);

    /// The top level first; a level stands before those inside of it, and those are next to each other.
    const std::vector<Level>& all() const { return m_levels; }

    /// The identifier of the active state for every level; empty where there is none. Should several be
    /// active on a level, which the rules of charts allow, they are joined by "+".
    std::vector<std::string> active(const std::vector<std::shared_ptr<AbstractState>>& activeStates) const;

private:
    void add(const std::vector<std::shared_ptr<AbstractState>>& states);

    std::vector<Level> m_levels;
    std::unordered_map<const AbstractState*, std::size_t> m_indexes; // into m_levels, by owner
};

/// The name of a level: that of the state that it is the inside of, "chart" for the top level.
std::string nameOf(const ActiveLevels::Level& level);

/// The states around the owner of a level, the outermost first.
std::vector<const AbstractState*> statesAround(const ActiveLevels::Level& level);

#endif
