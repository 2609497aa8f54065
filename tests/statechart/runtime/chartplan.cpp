#include "chartplan.h"

#include "statechart/text/format.h"

namespace {

/// Members or elements, with commas between them.
template <class List, class Text>
std::string joined(const List& list, Text textOfOne)
{
    std::string text;
    for (const auto& one : list)
        text += (text.empty() ? "" : ", ") + textOfOne(one);
    return text;
}

std::string actions(const std::string& key, const std::string& what, const std::string& owner, int count)
{
    if (count == 0)
        return {};
    std::vector<int> numbers;
    for (int number = 0; number < count; ++number)
        numbers.push_back(number);
    const auto statement = [&](int number) {
        return formatText(R"json("print(\"{}\");")json", printedText(what, owner, number));
    };
    return formatText(R"(, "{}": [{}])", key, joined(numbers, statement));
}

std::string transitionText(const PlannedTransition& transition)
{
    std::string text = formatText(R"("{}": {{"target": "{}", "order": {})", transition.identifier,
                                  transition.target, transition.order);
    if (transition.event)
        text += formatText(R"(, "event": "{}")", *transition.event);
    if (!transition.conditions.empty()) {
        const auto condition = [](const std::string& pin) {
            return formatText(R"json("isPinHigh(\"{}\")")json", pin);
        };
        text += formatText(R"(, "conditions": [{}])", joined(transition.conditions, condition));
    }
    if (transition.hasWakeTime)
        text +=
            formatText(R"json(, "wakeTimeCalc": "getParameter_double(\"{}\")")json", transition.identifier);
    return text + actions("actions", "take", transition.identifier, transition.actions) + "}";
}

std::string stateText(const PlannedState& state)
{
    constexpr const char* types[] = {"atomic", "compound", "parallel"};
    std::string text =
        formatText(R"("{}": {{"type": "{}")", state.identifier, types[static_cast<int>(state.kind)]);
    if (state.kind == PlannedKind::compound)
        text += formatText(R"(, "initial": "{}")", state.initial);
    text += actions("onEntry", "in", state.identifier, state.entryActions);
    text += actions("onExit", "out", state.identifier, state.exitActions);
    if (!state.transitions.empty())
        text += formatText(R"(, "transitions": {{{}}})", joined(state.transitions, transitionText));
    if (state.kind != PlannedKind::atomic)
        text += formatText(",\n\"substates\": {{{}}}", joined(state.substates, stateText));
    return text + "}";
}

std::string eventText(const PlannedEvent& event)
{
    switch (event.kind) {
    case PlannedEvent::Kind::named:
        return event.name;
    case PlannedEvent::Kind::change:
        return "change";
    case PlannedEvent::Kind::wake:
        return formatText("wake {}", event.wakeIdentifier);
    case PlannedEvent::Kind::initialisation:
        return "init";
    }
    return {};
}

} // namespace

std::string printedText(const std::string& what, const std::string& owner, int number)
{
    return formatText("{} {} {}", what, owner, number);
}

std::string definitionOf(const ChartPlan& plan)
{
    return formatText("{{\"outputs\": {{}}, \"outputDelay\": 1, \"start\": \"{}\", \"states\": {{\n{}}}}}",
                      plan.start, joined(plan.states, stateText));
}

std::string textOf(const ChartPlan& plan)
{
    return definitionOf(plan) + "\nevents: " + joined(plan.events, eventText);
}
