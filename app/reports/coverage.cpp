#include "reports/coverage.h"

#include "statechart/json/jsonwriter.h"

#include <algorithm>
#include <limits>

namespace {

Coverage::Count operator+(Coverage::Count left, Coverage::Count right)
{
    return {left.covered + right.covered, left.total + right.total};
}

std::string text(const char* what, Coverage::Count count)
{
    const std::size_t tenths = count.total == 0 ? 1000 : count.covered * 1000 / count.total;
    return std::string(what) + " " + std::to_string(count.covered) + "/" + std::to_string(count.total) +
           " (" + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %)";
}

/// Integers of JSON have 32 bits here; nobody counts further.
JsonValue json(std::uint64_t count)
{
    return static_cast<std::int32_t>(
        std::min<std::uint64_t>(count, std::numeric_limits<std::int32_t>::max()));
}

JsonValue json(Coverage::Count count)
{
    return JsonObject{{"covered", json(count.covered)}, {"total", json(count.total)}};
}

JsonValue json(const Coverage::State& state)
{
    return JsonObject{{"state", state.path}, {"entered", json(state.entered)}};
}

JsonValue json(const Coverage::Transition& transition)
{
    JsonArray conditions;
    for (const Coverage::Condition& condition : transition.conditions)
        conditions.push_back(JsonObject{{"true", json(condition.held)}, {"false", json(condition.failed)}});
    return JsonObject{{"transition", transition.identifier},
                      {"source", transition.source},
                      {"target", transition.target},
                      {"taken", json(transition.taken)},
                      {"conditions", std::move(conditions)}};
}

template <class Element>
JsonArray jsonArray(const std::vector<Element>& elements)
{
    JsonArray array;
    for (const Element& element : elements)
        array.push_back(json(element));
    return array;
}

} // namespace

Coverage::Count Coverage::stateCount() const
{
    const auto covered = std::ranges::count_if(states, [](const State& state) { return state.entered > 0; });
    return {static_cast<std::size_t>(covered), states.size()};
}

Coverage::Count Coverage::transitionCount() const
{
    const auto covered =
        std::ranges::count_if(transitions, [](const Transition& transition) { return transition.taken > 0; });
    return {static_cast<std::size_t>(covered), transitions.size()};
}

Coverage::Count Coverage::outcomeCount() const
{
    Count count;
    for (const Transition& transition : transitions) {
        for (const Condition& condition : transition.conditions) {
            count.total += 2;
            count.covered += (condition.held > 0 ? 1u : 0u) + (condition.failed > 0 ? 1u : 0u);
        }
    }
    return count;
}

Coverage::Count Coverage::count() const
{
    return stateCount() + transitionCount() + outcomeCount();
}

std::string coverageSummary(const Coverage& coverage)
{
    return text("states", coverage.stateCount()) + ", " + text("transitions", coverage.transitionCount()) +
           ", " + text("outcomes", coverage.outcomeCount()) + ", " + text("all", coverage.count());
}

std::string coverageJson(const Coverage& coverage, const std::string& device)
{
    return toString(JsonObject{{"device", device},
                               {"states", jsonArray(coverage.states)},
                               {"transitions", jsonArray(coverage.transitions)},
                               {"summary", JsonObject{{"states", json(coverage.stateCount())},
                                                      {"transitions", json(coverage.transitionCount())},
                                                      {"outcomes", json(coverage.outcomeCount())},
                                                      {"all", json(coverage.count())}}}}) +
           "\n";
}
