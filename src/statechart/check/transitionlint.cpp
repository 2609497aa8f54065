#include "statechart/check/lints.h"
#include "statechart/check/namehints.h"
#include "statechart/check/transitionshadows.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 2> deviceEvents{"change", "wake"};
constexpr std::array<const char*, 2> timeKeys{"wakeTime", "wakeTimeCalc"};

JsonPath memberOf(const ChartTransition& transition, std::string_view key)
{
    JsonPath path = transition.place.path();
    path.emplace_back(std::string(key));
    return path;
}

void lintTarget(const ChartModel& chart, const ChartTransition& transition,
                const std::vector<std::string_view>& stateNames, NameHints& hints, FindingReport& report)
{
    const JsonValue* const target = transition.definition->find("target");
    if (transition.target || target == nullptr)
        return;
    if (target->isString() && chart.isState(target->asString()))
        return; // what is wrong is that state
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

/// The compiler copies any value; who loads the device wants an integer.
void lintOrder(const ChartTransition& transition, FindingReport& report)
{
    if (transition.order || !transition.definition->contains("order"))
        return;
    report.addAt({FindingKind::invalidOrder, "the order of a transition is an integer"},
                 memberOf(transition, "order"));
}

void lintShadows(const ChartModel& chart, FindingReport& report)
{
    const std::vector<std::optional<std::size_t>> shadows = transitionShadows(chart);
    for (std::size_t i = 0; i < shadows.size(); ++i) {
        if (!shadows[i])
            continue;
        const ChartTransition& first = chart.transitions()[*shadows[i]];
        const ChartTransition& transition = chart.transitions()[i];
        report.addAtKey(
            {FindingKind::shadowedTransition,
             formatText(first.conditions.empty()
                            ? "'{}' is never taken: '{}' comes first and has no conditions"
                            : "'{}' is never taken: '{}' comes first and its conditions always hold",
                        transition.identifier, first.identifier)},
            transition.place.path());
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
        lintTarget(checked.chart, transition, stateNames, hints, report);
        lintOrder(transition, report);
        lintInside(checked.chart, transition, report);
        lintEvent(transition, hints, report);
        lintTime(transition, report);
    }
    lintShadows(checked.chart, report);
}
