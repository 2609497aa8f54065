#include "statechart/check/chartmodel.h"

#include "actionlanguage/analysis/constantfolding.h"
#include "statechart/statechartcompiler.h"

#include <algorithm>

namespace {

std::optional<std::string_view> wordAt(const JsonObject& definition, std::string_view key)
{
    const JsonValue* const value = definition.find(key);
    if (value == nullptr || !value->isString())
        return std::nullopt;
    return value->asString();
}

ChartState::Type typeOf(const JsonObject& definition)
{
    const std::optional<std::string_view> word = wordAt(definition, "type");
    if (word == "atomic")
        return ChartState::Type::atomic;
    if (word == "compound")
        return ChartState::Type::compound;
    return word == "parallel" ? ChartState::Type::parallel : ChartState::Type::unknown;
}

} // namespace

bool ChartTransition::hasEvent(std::string_view name) const
{
    const JsonValue* const event = definition->find("event");
    return event != nullptr && event->equals(name);
}

bool ChartState::hasUnknownTypeWord() const
{
    return type == Type::unknown && wordAt(*definition, "type");
}

ChartModel::ChartModel(const JsonObject& definition, const std::vector<CheckedText>& texts,
                       const ConstantFolding& folding)
{
    for (const CheckedText& text : texts) {
        if (text.use == CheckedText::Use::condition)
            m_conditions.emplace(text.text->identity, &text);
    }
    std::unordered_map<std::string_view, std::size_t> topLevel;
    for (const JsonMember& member : membersOf(definition, "states")) {
        if (const auto state = addState(member, JsonPlace().below("states"), std::nullopt, 1))
            topLevel.emplace(member.key, *state);
    }
    if (const auto start = wordAt(definition, "start")) {
        if (const auto found = topLevel.find(*start); found != topLevel.end())
            m_start = found->second;
    }
    for (ChartTransition& transition : m_transitions)
        addConditions(transition, folding);
    resolve();
    sortTransitions();
}

/// The members of a section; none when it is missing or no object.
const JsonObject& ChartModel::membersOf(const JsonObject& definition, std::string_view section)
{
    static const JsonObject none;
    const JsonValue* const value = definition.find(section);
    if (value != nullptr && value->isObject())
        return value->asObject();
    m_isWhole = m_isWhole && value == nullptr && section != "states";
    return none;
}

std::optional<std::size_t> ChartModel::addState(const JsonMember& member, const JsonPlace& section,
                                                std::optional<std::size_t> parent, int depth)
{
    if (!member.value.isObject() || depth > StateChartCompiler::maximumStateDepth) {
        m_leftOut.insert(member.key);
        m_isWhole = false;
        return std::nullopt;
    }
    const JsonObject& definition = member.value.asObject();
    const std::size_t state = m_states.size();
    m_states.push_back(
        {.identifier = member.key,
         .place = section.below(member.key),
         .definition = &definition,
         .type = typeOf(definition),
         .isRead = !parent || (m_states[*parent].isRead && !m_states[*parent].hasUnknownTypeWord()),
         .parent = parent,
         .children = {},
         .initial = {},
         .transitions = {}});
    if (m_states[state].type != ChartState::Type::atomic) // others may have been meant to have some
        addChildren(state, definition, depth);
    addTransitions(state, definition);
    m_names.emplace(member.key, state); // behind its children: a nested state hides a later one of its name
    return state;
}

void ChartModel::addChildren(std::size_t state, const JsonObject& definition, int depth)
{
    const std::optional<std::string_view> initial =
        m_states[state].type == ChartState::Type::compound ? wordAt(definition, "initial") : std::nullopt;
    const JsonPlace section = m_states[state].place.below("substates");
    for (const JsonMember& member : membersOf(definition, "substates")) {
        const auto child = addState(member, section, state, depth + 1);
        if (!child)
            continue;
        m_states[state].children.push_back(*child);
        if (member.key == initial)
            m_states[state].initial = child;
    }
}

void ChartModel::addTransitions(std::size_t state, const JsonObject& definition)
{
    const JsonPlace section = m_states[state].place.below("transitions");
    for (const JsonMember& member : membersOf(definition, "transitions")) {
        if (!member.value.isObject()) {
            m_isWhole = false;
            continue;
        }
        const JsonObject& transition = member.value.asObject();
        const JsonValue* const order = transition.find("order");
        ChartTransition model{.identifier = member.key,
                              .place = section.below(member.key),
                              .definition = &transition,
                              .source = state,
                              .target = {},
                              .order = {},
                              .holding = Holding::always,
                              .conditions = {},
                              .areConditionsKnown = true};
        if (order != nullptr && order->isInt())
            model.order = order->asInt();
        m_transitions.push_back(std::move(model));
    }
}

void ChartModel::addConditions(ChartTransition& transition, const ConstantFolding& folding) const
{
    const auto add = [&](const JsonValue& text) {
        const auto found = text.isString() ? m_conditions.find(text.asString().data()) : m_conditions.end();
        if (found == m_conditions.end())
            transition.areConditionsKnown = false;
        else
            transition.conditions.push_back(found->second);
    };
    const JsonValue* const conditions = transition.definition->find("conditions");
    if (conditions != nullptr && conditions->isArray())
        std::ranges::for_each(conditions->asArray(), add);
    else if (conditions != nullptr)
        add(*conditions);
    transition.holding = transition.areConditionsKnown ? Holding::always : Holding::sometimes;
    for (const CheckedText* condition : transition.conditions) {
        const std::optional<bool> truth = folding.truthOf(condition->tree);
        if (truth == false) {
            transition.holding = Holding::never;
            return;
        }
        if (!truth)
            transition.holding = Holding::sometimes;
    }
}

void ChartModel::resolve()
{
    for (std::size_t i = 0; i < m_transitions.size(); ++i) {
        ChartTransition& transition = m_transitions[i];
        transition.source = m_names.at(m_states[transition.source].identifier);
        m_states[transition.source].transitions.push_back(i);
        if (const auto target = wordAt(*transition.definition, "target")) {
            if (const auto found = m_names.find(*target); found != m_names.end())
                transition.target = found->second;
        }
    }
}

void ChartModel::sortTransitions()
{
    for (ChartState& state : m_states) {
        std::ranges::stable_sort(state.transitions, {}, [&](std::size_t transition) {
            return m_transitions[transition].order.value_or(0);
        });
    }
}
