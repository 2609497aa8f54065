#include "statechart/check/lints.h"
#include "statechart/check/namehints.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace {

constexpr std::array<std::string_view, 2> deviceEvents{"change", "wake"};
constexpr std::array<const char*, 2> timeKeys{"wakeTime", "wakeTimeCalc"};
constexpr std::string_view noEvent("\0none", 5); // no string of a definition that names an event

JsonPath memberOf(const ChartTransition& transition, std::string_view key)
{
    JsonPath path = transition.path;
    path.emplace_back(std::string(key));
    return path;
}

void lintTarget(const ChartTransition& transition, const std::vector<std::string_view>& stateNames,
                NameHints& hints, FindingReport& report)
{
    const JsonValue* const target = transition.definition->find("target");
    if (transition.target || target == nullptr)
        return;
    std::string text = "the target of a transition is the identifier of a state";
    if (target->isString()) {
        text = formatText("'{}': no such state{}", target->asString(),
                          hints.hintFor(target->asString(), stateNames));
    }
    report.addAt({FindingKind::unknownTarget, text}, memberOf(transition, "target"));
}

/// Such a transition exits nothing: the target becomes active beside what is active already.
void lintInside(const ChartModel& chart, const ChartTransition& transition, FindingReport& report)
{
    if (!transition.target)
        return;
    const std::vector<ChartState>& states = chart.states();
    std::optional<std::size_t> outer = states[*transition.target].parent;
    while (outer && *outer != transition.source)
        outer = states[*outer].parent;
    if (outer) {
        report.addAt(
            {FindingKind::targetInsideSource,
             formatText("'{}' is inside of '{}', which the transition does not exit",
                        states[*transition.target].identifier, states[transition.source].identifier)},
            memberOf(transition, "target"));
    }
}

void lintEvent(const ChartTransition& transition, NameHints& hints, FindingReport& report)
{
    const JsonValue* const event = transition.definition->find("event");
    if (event == nullptr)
        return;
    if (event->isString() && std::ranges::find(deviceEvents, event->asString()) != deviceEvents.end())
        return;
    std::string text = "the event of a transition is \"change\" or \"wake\"";
    if (event->equals("init")) {
        text = "'init': the chart's own start takes this event before any state is active";
    } else if (event->isString()) {
        text = formatText("'{}': no such event{}", event->asString(),
                          hints.hintFor(event->asString(), deviceEvents));
    }
    report.addAt({FindingKind::unknownEvent, text}, memberOf(transition, "event"));
}

void lintTime(const ChartTransition& transition, FindingReport& report)
{
    const bool isWake = transition.hasEvent("wake");
    bool hasTime = false;
    for (const char* key : timeKeys) {
        if (!transition.definition->contains(key))
            continue;
        hasTime = true;
        if (!isWake) {
            report.addAtKey({FindingKind::timeWithoutWake,
                             formatText("'{}' means nothing without the event \"wake\"", key)},
                            memberOf(transition, key));
        }
    }
    if (isWake && !hasTime) {
        report.addAt({FindingKind::wakeWithoutTime,
                      "a \"wake\" transition without \"wakeTime\" or \"wakeTimeCalc\" is never taken"},
                     memberOf(transition, "event"));
    }
}

/// Of the transitions of a state, by order, each that comes behind one of the same event without conditions.
/// Wakes do not compete: each is a transition's own.
void lintShadows(const ChartModel& chart, const ChartState& state, FindingReport& report)
{
    std::unordered_map<std::string_view, const ChartTransition*> unconditional; // the first, by event
    for (const std::size_t index : state.transitions) {
        const ChartTransition& transition = chart.transitions()[index];
        const JsonValue* const event = transition.definition->find("event");
        const bool isComparable = event == nullptr || event->isString();
        if (!isComparable || !transition.order || transition.hasEvent("wake"))
            continue;
        const std::string_view name = event == nullptr ? noEvent : std::string_view(event->asString());
        const auto first = unconditional.find(name);
        if (first != unconditional.end() && *first->second->order < *transition.order) {
            report.addAtKey({FindingKind::shadowedTransition,
                             formatText("'{}' is never taken: '{}' comes first and has no conditions",
                                        transition.identifier, first->second->identifier)},
                            transition.path);
        } else if (first == unconditional.end() && !transition.hasConditions) {
            unconditional.emplace(name, &transition);
        }
    }
}

} // namespace

void lintTransitions(const CheckedDefinition& checked, FindingReport& report)
{
    std::vector<std::string_view> stateNames;
    for (const ChartState& state : checked.chart.states())
        stateNames.push_back(state.identifier);
    NameHints hints;
    for (const ChartTransition& transition : checked.chart.transitions()) {
        lintTarget(transition, stateNames, hints, report);
        lintInside(checked.chart, transition, report);
        lintEvent(transition, hints, report);
        lintTime(transition, report);
    }
    for (const ChartState& state : checked.chart.states())
        lintShadows(checked.chart, state, report);
}
