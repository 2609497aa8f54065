#ifndef CHARTPLAN_H
#define CHARTPLAN_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A chart in its plainest form, and what is to happen to it: what random tests make, run and cut down.

struct PlannedTransition
{
    std::string identifier;
    std::string target;
    std::int32_t order = 0;
    std::optional<std::string> event;
    std::vector<std::string> conditions; ///< pins that must be high
    bool hasWakeTime = false;
    int actions = 0; ///< how many; each prints who it is
};

enum class PlannedKind
{
    atomic,
    compound,
    parallel,
};

struct PlannedState
{
    std::string identifier;
    PlannedKind kind = PlannedKind::atomic;
    std::vector<PlannedState> substates;
    std::string initial;
    std::vector<PlannedTransition> transitions;
    int entryActions = 0;
    int exitActions = 0;
};

struct PlannedEvent
{
    enum class Kind
    {
        named,
        change,
        wake,
        initialisation,
    };

    Kind kind = Kind::named;
    std::string name;
    std::uint64_t wakeIdentifier = 0;
};

struct ChartPlan
{
    std::vector<PlannedState> states;
    std::string start;
    std::vector<PlannedEvent> events;
};

/// What the n-th action of an owner prints.
std::string printedText(const std::string& what, const std::string& owner, int number);

/// The definition of a device with this chart.
std::string definitionOf(const ChartPlan& plan);

/// The definition and the events, for people.
std::string textOf(const ChartPlan& plan);

#endif
