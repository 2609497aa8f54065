#ifndef CHARTOUTLINE_H
#define CHARTOUTLINE_H

#include "statechart/json/jsonvalue.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What a picture of a chart shows: its states and transitions with their texts, names resolved as they are
/// when the chart is linked.
struct ChartOutline
{
    enum class Type : std::uint8_t
    {
        atomic,
        compound,
        parallel,
    };

    struct State
    {
        std::string identifier;
        std::string path; ///< the identifiers of the states around it and its own, with slashes between
        Type type = Type::atomic;
        std::optional<std::size_t> parent;
        std::vector<std::size_t> children;
        std::optional<std::size_t> initial; ///< of a compound state
        std::vector<std::string> onEntry;
        std::vector<std::string> onExit;
    };

    struct Transition
    {
        std::string identifier;
        std::size_t source = 0;
        std::string targetName;
        std::optional<std::size_t> target; ///< none when no state has the name
        std::int32_t order = 0;
        bool isOneOfSeveral = false; ///< of its source's: the order matters
        std::optional<std::string> event;
        std::optional<std::string> wakeTime;
        std::optional<std::string> wakeTimeCalc;
        std::vector<std::string> conditions;
        std::vector<std::string> actions;
    };

    /// @param definition one that compiles
    explicit ChartOutline(const JsonObject& definition);

    bool isInside(std::size_t state, std::size_t ancestor) const;

    std::vector<State> states;           ///< a state stands before those inside it
    std::vector<Transition> transitions; ///< by source, in the order in which they are tried
    std::vector<std::size_t> topLevel;
    std::optional<std::size_t> start;
};

/// What stands at a transition in a picture, line by line: "1: change [condition]", then "/ action" and
/// further actions.
std::vector<std::string> labelOf(const ChartOutline::Transition& transition);

/// What stands in a state below its name, line by line: "entry / action", "exit / action".
std::vector<std::string> bodyOf(const ChartOutline::State& state);

#endif
