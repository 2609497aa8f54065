#include "statechart/statechartlinker.h"

#include "statechart/runtime/atomicstate.h"
#include "statechart/runtime/compoundstate.h"
#include "statechart/runtime/parallelstate.h"
#include "statechart/statechartcompiler.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <stdexcept>

namespace {

/// For more states than that a count is not believed before they are there.
constexpr std::int32_t maximumReserve = 65536;

std::shared_ptr<AbstractState> makeState(const std::string& type, const std::string& identifier,
                                         const std::shared_ptr<AbstractState>& parent)
{
    if (type == "atomic")
        return std::make_shared<AtomicState>(identifier, parent);
    if (type == "compound")
        return std::make_shared<CompoundState>(identifier, parent);
    if (type == "parallel")
        return std::make_shared<ParallelState>(identifier, parent);
    throw std::runtime_error(formatText("invalid state type: '{}'", type));
}

const std::shared_ptr<AbstractState>* findIn(const std::vector<std::shared_ptr<AbstractState>>& states,
                                             const std::string& identifier)
{
    const auto found = std::find_if(states.begin(), states.end(),
                                    [&](const auto& state) { return state->identifier == identifier; });
    return found == states.end() ? nullptr : &*found;
}

/// The elements of an array that may be missing.
const JsonArray& elementsOf(const JsonObject& compiled, std::string_view key)
{
    static const JsonArray none;
    const JsonValue* const value = compiled.find(key);
    return value == nullptr ? none : value->asArray();
}

} // namespace

StateChartLinker::StateChartLinker(std::int32_t stateCount, std::shared_ptr<CodeBuilder> codeBuilder)
    : m_codeBuilder(std::move(codeBuilder)),
      m_stateCount(static_cast<std::size_t>(std::clamp(stateCount, 0, maximumReserve)))
{}

StateChartLinker::~StateChartLinker() = default;

void StateChartLinker::link(const JsonObject& compiled, StateChart& chart)
{
    m_states.clear();
    m_states.reserve(m_stateCount);

    const JsonValue* const transitionTable = compiled.find("transitions");
    m_unreserved = transitionTable != nullptr && transitionTable->isObject()
                       ? transitionTable->asObject().size()
                       : 0; // it is reported when its turn comes

    const JsonObject& states = compiled.at("states").asObject();
    chart.states.reserve(states.size());
    for (const JsonMember& member : states)
        linkState(member.value.asObject(), member.key, nullptr, chart.states);

    linkStart(compiled.at("start").asString(), chart);

    for (const JsonMember& member : compiled.at("transitions").asObject())
        linkTransition(member.key, member.value.asObject());
    for (const auto& [identifier, state] : m_states) {
        std::stable_sort(
            state->transitions.begin(), state->transitions.end(),
            [](const Transition& left, const Transition& right) { return left.order < right.order; });
    }
}

void StateChartLinker::linkState(const JsonObject& compiled, const std::string& identifier,
                                 const std::shared_ptr<AbstractState>& parent, States& siblings)
{
    // Known to the chart at once, which undoes the circles between states also when linking fails.
    const std::shared_ptr<AbstractState> state =
        siblings.emplace_back(makeState(compiled.at("type").asString(), identifier, parent));
    if (state->depth() >= StateChartCompiler::maximumStateDepth)
        throw std::runtime_error("states are nested too deep");
    if (state->type() != AbstractState::atomic)
        linkSubstates(compiled, static_cast<AbstractHierarchicalState&>(*state));
    if (state->type() == AbstractState::compound) {
        auto& compound = static_cast<CompoundState&>(*state);
        const std::string& initial = compiled.at("initial").asString();
        const std::shared_ptr<AbstractState>* const found = findIn(compound.substates, initial);
        if (found == nullptr)
            throw std::runtime_error(formatText("initial state not found: '{}'", initial));
        compound.initialSubstate = *found;
    }

    const std::int32_t transitions = std::max(compiled.at("ntrans").asInt(), 0);
    const std::size_t reserved = std::min(static_cast<std::size_t>(transitions), m_unreserved);
    m_unreserved -= reserved;
    state->transitions.reserve(reserved);
    state->entryActions = linkActions(compiled, "onEntry");
    state->exitActions = linkActions(compiled, "onExit");

    // Last, so that of states with one identifier the innermost is found.
    m_states.emplace(identifier, state);
}

void StateChartLinker::linkSubstates(const JsonObject& compiled, AbstractHierarchicalState& state)
{
    const JsonObject& substates = compiled.at("substates").asObject();
    state.substates.reserve(substates.size());
    for (const JsonMember& member : substates)
        linkState(member.value.asObject(), member.key, state.shared_from_this(), state.substates);
}

void StateChartLinker::linkStart(const std::string& start, StateChart& chart) const
{
    const std::shared_ptr<AbstractState>* const found = findIn(chart.states, start);
    if (found == nullptr)
        throw std::runtime_error("starting state not found");
    chart.initialState = std::make_shared<AtomicState>("", nullptr);
    Transition& transition = chart.initialState->transitions.emplace_back();
    transition.source = chart.initialState;
    transition.target = *found;
    transition.event = "init";
}

void StateChartLinker::linkTransition(const std::string& identifier, const JsonObject& compiled)
{
    const std::shared_ptr<AbstractState>& source = find(compiled.at("src").asString());
    Transition transition;
    transition.identifier = identifier;
    transition.source = source;
    transition.target = find(compiled.at("tgt").asString());
    transition.order = compiled.at("order").asInt();
    transition.local = compiled.at("local").asBool();
    if (const JsonValue* const event = compiled.find("event"))
        transition.event = event->asString();
    transition.conditions = linkConditions(compiled);
    transition.actions = linkActions(compiled, "actions");
    source->transitions.push_back(std::move(transition));
}

std::vector<LinkedStatements> StateChartLinker::linkActions(const JsonObject& compiled,
                                                            std::string_view key) const
{
    const JsonArray& elements = elementsOf(compiled, key);
    std::vector<LinkedStatements> actions;
    actions.reserve(elements.size());
    for (const JsonValue& element : elements)
        actions.push_back(m_codeBuilder->linkStatements(element));
    return actions;
}

std::vector<ExpressionPointer<bool>> StateChartLinker::linkConditions(const JsonObject& compiled) const
{
    const JsonArray& elements = elementsOf(compiled, "conditions");
    std::vector<ExpressionPointer<bool>> conditions;
    conditions.reserve(elements.size());
    for (const JsonValue& element : elements)
        conditions.push_back(
            m_codeBuilder->linkCondition(element).take<bool>("condition is not of type bool"));
    return conditions;
}

const std::shared_ptr<AbstractState>& StateChartLinker::find(const std::string& identifier) const
{
    const auto found = m_states.find(identifier);
    if (found == m_states.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    return found->second;
}
