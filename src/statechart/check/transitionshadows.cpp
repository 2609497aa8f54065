#include "statechart/check/transitionshadows.h"

#include <unordered_map>

namespace {

constexpr std::string_view noEvent("\0none", 5); // no string of a definition that names an event

void addShadows(const ChartModel& chart, const ChartState& state,
                std::vector<std::optional<std::size_t>>& shadows)
{
    std::unordered_map<std::string_view, std::size_t> certain; // the first that always holds, by event
    for (const std::size_t index : state.transitions) {
        const ChartTransition& transition = chart.transitions()[index];
        const JsonValue* const event = transition.definition->find("event");
        const bool isComparable = event == nullptr || event->isString();
        if (!isComparable || !transition.order || transition.hasEvent("wake"))
            continue;
        const std::string_view name = event == nullptr ? noEvent : std::string_view(event->asString());
        const auto first = certain.find(name);
        if (first == certain.end()) {
            if (transition.holding == Holding::always && transition.target)
                certain.emplace(name, index);
        } else if (*chart.transitions()[first->second].order < *transition.order) {
            shadows[index] = first->second;
        }
    }
}

} // namespace

std::vector<std::optional<std::size_t>> transitionShadows(const ChartModel& chart)
{
    std::vector<std::optional<std::size_t>> shadows(chart.transitions().size());
    for (const ChartState& state : chart.states())
        addShadows(chart, state, shadows);
    return shadows;
}
