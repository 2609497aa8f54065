#include "diagram/chartoutline.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace {

std::optional<std::string> textIn(const JsonValue& object, std::string_view key)
{
    return object.has(key) ? std::optional(object.member(key).asString()) : std::nullopt;
}

/// One text or a list of them.
std::vector<std::string> textsIn(const JsonValue& object, std::string_view key)
{
    std::vector<std::string> texts;
    if (!object.has(key))
        return texts;
    const JsonValue& value = object.member(key);
    if (value.isString())
        return {value.asString()};
    for (const JsonValue& element : value.asArray())
        texts.push_back(element.asString());
    return texts;
}

ChartOutline::Type typeOf(const JsonValue& state)
{
    const std::string& word = state.member("type").asString();
    if (word == "compound")
        return ChartOutline::Type::compound;
    return word == "parallel" ? ChartOutline::Type::parallel : ChartOutline::Type::atomic;
}

class OutlineBuilder
{
public:
    explicit OutlineBuilder(ChartOutline& outline) : m_outline(outline) {}

    std::vector<std::size_t> addStates(const JsonValue& states, std::optional<std::size_t> parent)
    {
        std::vector<std::size_t> indexes;
        for (const JsonMember& member : states.asObject())
            indexes.push_back(addState(member, parent));
        return indexes;
    }

    /// As when a chart is linked: the source of a transition, too, is found by its name.
    void resolveTransitions()
    {
        std::vector<std::size_t> counts(m_outline.states.size());
        for (ChartOutline::Transition& transition : m_outline.transitions) {
            transition.source = m_names.at(m_outline.states[transition.source].identifier);
            ++counts[transition.source];
            const auto found = m_names.find(transition.targetName);
            if (found != m_names.end())
                transition.target = found->second;
        }
        std::ranges::stable_sort(m_outline.transitions, {}, [](const ChartOutline::Transition& transition) {
            return std::pair(transition.source, transition.order);
        });
        for (ChartOutline::Transition& transition : m_outline.transitions)
            transition.isOneOfSeveral = counts[transition.source] > 1;
    }

private:
    std::size_t addState(const JsonMember& member, std::optional<std::size_t> parent)
    {
        const std::size_t index = m_outline.states.size();
        ChartOutline::State state;
        state.identifier = member.key;
        state.path = (parent ? m_outline.states[*parent].path + "/" : "") + member.key;
        state.type = typeOf(member.value);
        state.parent = parent;
        state.onEntry = textsIn(member.value, "onEntry");
        state.onExit = textsIn(member.value, "onExit");
        m_outline.states.push_back(std::move(state));

        if (m_outline.states[index].type != ChartOutline::Type::atomic)
            addSubstates(member.value, index);
        addTransitions(member.value, index);
        m_names.emplace(member.key,
                        index); // behind those inside, whose names come first when a chart is linked
        return index;
    }

    void addSubstates(const JsonValue& definition, std::size_t index)
    {
        const std::vector<std::size_t> children = addStates(definition.member("substates"), index);
        m_outline.states[index].children = children;
        if (m_outline.states[index].type != ChartOutline::Type::compound)
            return;
        const std::string& initial = definition.member("initial").asString();
        const auto found = std::ranges::find(
            children, initial, [&](std::size_t child) { return m_outline.states[child].identifier; });
        if (found != children.end())
            m_outline.states[index].initial = *found;
    }

    void addTransitions(const JsonValue& definition, std::size_t source)
    {
        if (!definition.has("transitions"))
            return;
        for (const auto& [identifier, value] : definition.member("transitions").asObject()) {
            ChartOutline::Transition transition;
            transition.identifier = identifier;
            transition.source = source;
            transition.targetName = value.member("target").asString();
            transition.order =
                value.has("order") && value.member("order").isInt() ? value.member("order").asInt() : 0;
            transition.event = textIn(value, "event");
            if (transition.event == "wake") {
                transition.wakeTime = textIn(value, "wakeTime");
                if (!transition.wakeTime)
                    transition.wakeTimeCalc = textIn(value, "wakeTimeCalc");
            }
            transition.conditions = textsIn(value, "conditions");
            transition.actions = textsIn(value, "actions");
            m_outline.transitions.push_back(std::move(transition));
        }
    }

    ChartOutline& m_outline;
    std::unordered_map<std::string, std::size_t> m_names;
};

std::string joined(const std::vector<std::string>& texts, std::string_view between)
{
    std::string result;
    for (const std::string& text : texts)
        result.append(result.empty() ? "" : between).append(text);
    return result;
}

std::string triggerOf(const ChartOutline::Transition& transition)
{
    if (transition.wakeTime)
        return "after " + *transition.wakeTime;
    if (transition.wakeTimeCalc)
        return "after (" + *transition.wakeTimeCalc + ")";
    return transition.event.value_or("");
}

} // namespace

ChartOutline::ChartOutline(const JsonObject& definition)
{
    OutlineBuilder builder(*this);
    topLevel = builder.addStates(definition.at("states"), std::nullopt);
    builder.resolveTransitions();
    const std::string& first = definition.at("start").asString();
    const auto found =
        std::ranges::find(topLevel, first, [&](std::size_t state) { return states[state].identifier; });
    if (found != topLevel.end())
        start = *found;
}

bool ChartOutline::isInside(std::size_t state, std::size_t ancestor) const
{
    for (std::optional<std::size_t> around = states[state].parent; around; around = states[*around].parent)
        if (*around == ancestor)
            return true;
    return false;
}

std::vector<std::string> labelOf(const ChartOutline::Transition& transition)
{
    std::string first = transition.isOneOfSeveral ? std::to_string(transition.order) + ": " : "";
    first += triggerOf(transition);
    if (!transition.conditions.empty())
        first += (first.empty() || first.ends_with(' ') ? "[" : " [") +
                 joined(transition.conditions, " && ") + "]";
    std::vector<std::string> lines;
    if (!first.empty())
        lines.push_back(first);
    for (const std::string& action : transition.actions)
        lines.push_back((lines.size() == (first.empty() ? 0u : 1u) ? "/ " : "") + action);
    return lines;
}

std::vector<std::string> bodyOf(const ChartOutline::State& state)
{
    std::vector<std::string> lines;
    for (const std::string& action : state.onEntry)
        lines.push_back("entry / " + action);
    for (const std::string& action : state.onExit)
        lines.push_back("exit / " + action);
    return lines;
}
