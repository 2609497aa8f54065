#ifndef CHAINRUN_H
#define CHAINRUN_H

#include "statechart/check/chartmodel.h"

#include <functional>
#include <set>
#include <unordered_map>

/// Plays what a run-time does from a transition without event on, until nothing is left to do or it is sure
/// that this never comes: when a transition is taken inside of itself with the same states active.
class ChainRun
{
public:
    /// Whether the conditions of a transition hold; none to give up.
    using Conditions = std::function<std::optional<bool>(std::size_t transition)>;

    ChainRun(const ChartModel& chart, Conditions conditions)
        : m_chart(chart), m_conditions(std::move(conditions))
    {}

    /// The transitions that follow each other for ever after `first`, in their sequence; empty when the run
    /// ends, is given up, or takes more than `limit` steps.
    std::vector<std::size_t> wayRound(std::size_t first, std::size_t limit);

    /// How many steps the last call took.
    std::size_t steps() const { return m_steps; }

private:
    using States = std::set<std::size_t>;

    struct Frame
    {
        std::size_t transition; // whose target was entered
        std::vector<std::size_t> pending;
    };

    bool isActive(std::size_t state);
    bool isInside(std::size_t state, std::size_t outer) const;
    void exit(const ChartTransition& transition);
    bool enter(std::size_t state, std::vector<std::size_t>& pending);
    bool enterSubstates(const ChartState& state, std::vector<std::size_t>& pending);
    bool execute(std::size_t transition);
    std::vector<std::size_t> wayFrom(std::size_t transition) const;

    const ChartModel& m_chart;
    Conditions m_conditions;
    States m_active; // atomic states
    std::vector<Frame> m_frames;
    std::unordered_map<std::size_t, States> m_taken; // transitions in m_frames: what was active then
    std::size_t m_steps = 0;
};

#endif
