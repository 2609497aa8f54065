#ifndef ENDLESSCHAINS_H
#define ENDLESSCHAINS_H

#include "statechart/check/chainrun.h"
#include "statechart/check/components.h"
#include "statechart/check/standingworld.h"

/// Looks for transitions without event that follow each other for ever: with no conditions, or while what
/// they ask for stands still. Only states that can lead back to themselves are looked at, and for each group
/// of them no longer than its size allows and a common stock that many conditions may use up. So the search
/// is linear, and may miss a way round where conditions are many.
class EndlessChains
{
public:
    explicit EndlessChains(const CheckedDefinition& checked);

    /// The transitions of each way round; of those that share a transition the first that was found alone.
    std::vector<std::vector<std::size_t>> find();

    /// How much was done: states and values that were looked at, and conditions that were
    /// evaluated, by their length.
    std::size_t steps() const { return m_steps; }

private:
    GraphEdges edges();
    void findIn(const std::vector<std::size_t>& states);
    bool findFrom(std::size_t transition);
    bool keep(std::vector<std::size_t> way);
    std::optional<bool> isTakenOnEntry(std::size_t transition);
    std::optional<bool> holds(std::size_t transition);
    void spend(std::size_t steps);

    const ChartModel& m_chart;
    StandingReadings m_readings;
    StandingWorld m_world;
    ChainRun m_run;
    std::vector<std::vector<std::size_t>> m_found;
    std::vector<bool> m_isFound; // by transition: is on one of these ways
    std::size_t m_steps = 0;
    std::size_t m_allowance = 0; // of the group at hand
    std::size_t m_stock = 100'000;
};

#endif
