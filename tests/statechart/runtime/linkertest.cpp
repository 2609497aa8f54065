// From compiled devices, and from what only looks like one, to charts.

#include "statechart/runtime/compoundstate.h"
#include "traceactor.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr std::string_view sections = R"("inputBuses": {}, "inputPins": {}, "outputBuses": {},
    "outputPins": {}, "variables": {}, "parameters": {})";

std::string compiledWith(std::string_view states, std::string_view transitions, std::string_view start = "a")
{
    std::string text = R"({"nstates": 0, "start": ")";
    text.append(start).append(R"(", "states": {)").append(states).append(R"(}, "transitions": {)");
    return text.append(transitions).append("}, ").append(sections).append("}");
}

std::string failureOfLink(std::string_view compiled)
{
    return failureOf([&] { linkedText(compiled); });
}

constexpr std::string_view oneState = R"("a": {"type": "atomic", "ntrans": 0})";

TEST(Linker, GivesEachStateItsKindItsParentAndItsSubstatesInOrder)
{
    const Chart chart = linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "c", "substates": {
            "b": {"type": "atomic"}, "c": {"type": "parallel", "substates": {"d": {"type": "atomic"}}}}},
        "e": {"type": "atomic"})");
    ASSERT_EQ(chart->states.size(), 2u);
    const auto all = chart->allStates();
    Trace lines;
    for (const auto& state : all)
        lines.push_back(formatText("{} {} {} {}", state->identifier, state->type(), state->depth(),
                                   state->parent ? state->parent->identifier : "-"));
    EXPECT_THAT(lines, ElementsAre("a 1 0 -", "e 0 0 -", "b 0 1 a", "c 2 1 a", "d 0 2 c"));
    EXPECT_EQ(static_cast<const CompoundState&>(*all[0]).initialSubstate, all[3]);
    EXPECT_EQ(all[3], all[3]->shared_from_this());
}

TEST(Linker, BeginsInAStateOfItsOwnThatLeavesForTheStart)
{
    const Chart chart = linkedDevice("b", R"("a": {"type": "atomic"}, "b": {"type": "atomic"})");
    const AbstractState& initial = *chart->initialState;
    EXPECT_EQ(initial.identifier, "");
    EXPECT_EQ(initial.type(), AbstractState::atomic);
    EXPECT_EQ(initial.parent, nullptr);
    ASSERT_EQ(initial.transitions.size(), 1u);
    const Transition& transition = initial.transitions.front();
    EXPECT_EQ(transition.identifier, "");
    EXPECT_EQ(transition.source, chart->initialState);
    EXPECT_EQ(transition.target, chart->states[1]);
    EXPECT_EQ(transition.event, "init");
    EXPECT_FALSE(transition.local);
    EXPECT_EQ(transition.order, 0);
    EXPECT_TRUE(transition.conditions.empty());
    EXPECT_TRUE(transition.actions.empty());
}

TEST(Linker, FillsATransitionAndSortsThemByOrder)
{
    const Chart chart = linkedText(compiledWith(R"("a": {"type": "atomic", "ntrans": 2})", R"(
        "late": {"src": "a", "tgt": "a", "order": 7, "local": true, "event": "go", "conditions": [true, false],
            "actions": [{"statements": [], "variables": {}}]},
        "early": {"src": "a", "tgt": "a", "order": -7, "local": false})"));
    const auto& transitions = chart->states.front()->transitions;
    ASSERT_EQ(transitions.size(), 2u);
    EXPECT_EQ(transitions[0].identifier, "early");
    EXPECT_EQ(transitions[0].event, std::nullopt);
    EXPECT_EQ(transitions[0].order, -7);
    EXPECT_EQ(transitions[1].identifier, "late");
    EXPECT_EQ(transitions[1].event, "go");
    EXPECT_TRUE(transitions[1].local);
    EXPECT_EQ(transitions[1].conditions.size(), 2u);
    EXPECT_EQ(transitions[1].actions.size(), 1u);
    EXPECT_EQ(transitions[1].source, chart->states.front());
}

TEST(Linker, LinksTwoTransitionsOfOneOrder)
{
    const Chart chart = linkedDevice("a", R"("a": {"type": "atomic", "transitions": {
        "t": {"target": "a", "order": 1}, "u": {"target": "a", "order": 1}}})");
    EXPECT_EQ(chart->states.front()->transitions.size(), 2u);
}

TEST(Linker, RefusesAStateTypeThatTheCompilerLetsThrough)
{
    EXPECT_EQ(failureOf([] { linkedDevice("a", R"("a": {"type": "x"})"); }), "invalid state type: 'x'");
}

TEST(Linker, RefusesATargetThatNamesNoState)
{
    constexpr auto states = R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0}}})";
    EXPECT_EQ(failureOf([&] { linkedDevice("a", states); }), "invalid unordered_map<K, T> key");
    EXPECT_THROW(linkedDevice("a", states), std::out_of_range);
}

TEST(Linker, FindsTheNestedOneOfTwoStatesWithOneIdentifierWhenItIsLinkedFirst)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b", "substates": {
            "b": {"type": "atomic", "onEntry": "print(\"nested\");"}}},
        "b": {"type": "atomic", "onEntry": "print(\"top\");"},
        "c": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "init"}}})"));
    actor.begin();
    const auto& transition = actor.chart().states[2]->transitions.at(0);
    EXPECT_EQ(transition.target->parent, actor.chart().states[0]);
}

TEST(Linker, GivesTheNestedOneOfTwoStatesWithOneIdentifierTheTransitionsOfBoth)
{
    const Chart chart = linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "atomic"}}},
        "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "go"}}})");
    const auto nested = static_cast<const CompoundState&>(*chart->states.front()).initialSubstate;
    ASSERT_EQ(nested->transitions.size(), 1u);
    EXPECT_EQ(nested->transitions.front().source, nested);
    EXPECT_THAT(chart->states[1]->transitions, testing::IsEmpty());
}

TEST(Linker, FindsANestedStateBeforeTheStateAroundItOfTheSameIdentifier)
{
    const Chart chart = linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "a", "substates": {
            "a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "go"}}}}})");
    const auto nested = static_cast<const CompoundState&>(*chart->states.front()).initialSubstate;
    ASSERT_EQ(nested->transitions.size(), 1u);
    EXPECT_EQ(nested->transitions.front().target, nested);
}

TEST(Linker, KeepsTheFirstOfTwoStatesWithOneIdentifier)
{
    const Chart chart = linkedDevice("b", R"(
        "b": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go"}}},
        "a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "atomic"}}})");
    EXPECT_EQ(chart->states.front()->transitions.at(0).target, chart->states.front());
}

TEST(Linker, SaysWhatIsWrongWithACompiledChart)
{
    const std::vector<std::pair<std::string, std::string>> refusals{
        {"{}", "invalid key"},
        {R"({"nstates": 0})", "invalid key"},
        {R"({"nstates": "0", "states": {}})", "invalid cast"},
        {R"({"nstates": 1.0, "states": {}})", "invalid cast"},
        {R"({"nstates": 0, "states": []})", "invalid cast"},
        {R"({"nstates": 0, "states": {}, "start": 1})", "invalid cast"},
        {R"({"nstates": 0, "states": {}})", "invalid key"},
        {compiledWith("", ""), "starting state not found"},
        {compiledWith(oneState, "", "b"), "starting state not found"},
        {compiledWith(R"("a": {"type": "compound", "ntrans": 0, "initial": "b", "substates": {
            "b": {"type": "atomic", "ntrans": 0}}})",
                      "", "b"),
         "starting state not found"},
        {compiledWith(R"("a": 1)", ""), "invalid cast"},
        {compiledWith(R"("a": {"ntrans": 0})", ""), "invalid key"},
        {compiledWith(R"("a": {"type": 1, "ntrans": 0})", ""), "invalid cast"},
        {compiledWith(R"("a": {"type": "Atomic", "ntrans": 0})", ""), "invalid state type: 'Atomic'"},
        {compiledWith(R"("a": {"type": "atomic"})", ""), "invalid key"},
        {compiledWith(R"("a": {"type": "atomic", "ntrans": "0"})", ""), "invalid cast"},
        {compiledWith(R"("a": {"type": "parallel", "ntrans": 0})", ""), "invalid key"},
        {compiledWith(R"("a": {"type": "compound", "ntrans": 0, "substates": {}})", ""), "invalid key"},
        {compiledWith(R"("a": {"type": "compound", "ntrans": 0, "substates": {}, "initial": "x"})", ""),
         "initial state not found: 'x'"},
        {compiledWith(R"("a": {"type": "compound", "ntrans": 0, "initial": "c", "substates": {
            "b": {"type": "compound", "ntrans": 0, "initial": "c", "substates": {
                "c": {"type": "atomic", "ntrans": 0}}}}})",
                      ""),
         "initial state not found: 'c'"},
        {compiledWith(R"("a": {"type": "atomic", "ntrans": 0, "onEntry": 1})", ""), "invalid cast"},
        {compiledWith(R"("a": {"type": "atomic", "ntrans": 0, "onExit": [1]})", ""),
         "json value is not an object"},
        {compiledWith(R"("a": {"type": "atomic", "ntrans": 0, "onExit": [{}]})", ""), "invalid key"},
        {compiledWith(oneState, R"("t": 1)"), "invalid cast"},
        {compiledWith(oneState, R"("t": {})"), "invalid key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": 1})"), "invalid cast"},
        {compiledWith(oneState, R"("t": {"src": "b", "tgt": "a"})"), "invalid unordered_map<K, T> key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "b"})"), "invalid unordered_map<K, T> key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": ""})"), "invalid unordered_map<K, T> key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a"})"), "invalid key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a", "order": "1"})"), "invalid cast"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a", "order": 1})"), "invalid key"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a", "order": 1, "local": 0})"), "invalid cast"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "event": 1})"),
         "invalid cast"},
        {compiledWith(oneState,
                      R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "conditions": "true"})"),
         "invalid cast"},
        {compiledWith(
             oneState,
             R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "conditions": [{"rule": "nope"}]})"),
         "unable to link expression object"},
        {compiledWith(oneState,
                      R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "conditions": [1]})"),
         "type mismatch: expected 'bool', actual 'int'"},
        {compiledWith(oneState, R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "wakeTime": 1})"),
         "type mismatch: expected 'double', actual 'int'"},
        {compiledWith(
             oneState,
             R"("t": {"src": "a", "tgt": "a", "order": 1, "local": true, "wakeTime": {"rule": "nope"}})"),
         "unable to link expression object"},
    };
    for (const auto& [compiled, text] : refusals)
        EXPECT_EQ(failureOfLink(compiled), text) << compiled;
}

TEST(Linker, TakesCountsOfThingsForHintsOnly)
{
    for (const char* count : {"2147483647", "-2147483648", "-1", "0", "1"}) {
        std::string text = compiledWith(R"("a": {"type": "atomic", "ntrans": %n})",
                                        R"("t": {"src": "a", "tgt": "a", "order": 1, "local": false})");
        text.replace(text.find("%n"), 2, count);
        text.replace(text.find(": 0"), 3, std::string(": ") + count);
        EXPECT_LE(linkedText(text)->states.front()->transitions.capacity(), 1u) << count;
    }
}

TEST(Linker, ReservesNoMoreTransitionsThanThereAreWhateverStatesClaim)
{
    std::string states = R"("a": {"type": "atomic", "ntrans": 0})";
    for (int index = 0; index < 1000; ++index)
        states += formatText(R"(, "s{}": {{"type": "atomic", "ntrans": 2147483647}})", index);
    const Chart chart =
        linkedText(compiledWith(states, R"("t": {"src": "a", "tgt": "a", "order": 1, "local": false})"));
    std::size_t reserved = 0;
    for (const auto& state : chart->states)
        reserved += state->transitions.capacity();
    EXPECT_LE(reserved, 2u);
}

/// States in states; the number of levels is given.
std::string nestedStates(int levels)
{
    std::string open;
    std::string close = R"({"type": "atomic", "ntrans": 0})";
    for (int level = 1; level < levels; ++level) {
        open += R"({"type": "compound", "ntrans": 0, "initial": "x", "substates": {"x": )";
        close += "}}";
    }
    return compiledWith("\"a\": " + open + close, "");
}

TEST(Linker, TakesStatesNestedAsDeepAsTheyCompileAndNoDeeper)
{
    TraceActor actor(linkedText(nestedStates(StateChartCompiler::maximumStateDepth)));
    EXPECT_EQ(actor.begin().size(), 501u);
    EXPECT_EQ(failureOfLink(nestedStates(StateChartCompiler::maximumStateDepth + 1)),
              "states are nested too deep");
}

TEST(Linker, LeavesNoStateBehindWhenAChartIsGone)
{
    std::weak_ptr<AbstractState> inner;
    std::shared_ptr<AbstractState> kept;
    {
        const Chart chart = linkedDevice("a", R"(
            "a": {"type": "compound", "initial": "b", "substates": {
                "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0}}},
                "c": {"type": "atomic"}}})");
        const auto& substates = static_cast<const CompoundState&>(*chart->states.front()).substates;
        inner = substates[0];
        kept = substates[1];
    }
    EXPECT_TRUE(inner.expired());
    EXPECT_EQ(kept->parent, nullptr);
    EXPECT_EQ(kept->depth(), 0);
}

class CountingLinker : public StateChartLinker
{
public:
    CountingLinker() : StateChartLinker(0, deviceCodeBuilder()) {}

    void linkTransition(const std::string& identifier, const JsonObject& compiled) override
    {
        seen.push_back(identifier);
        StateChartLinker::linkTransition(identifier, compiled);
    }

    Trace seen;
};

TEST(Linker, HandsEveryTransitionToItsVirtualOperation)
{
    CountingLinker linker;
    StateChart chart;
    linker.link(compiledDevice(deviceOf("a", R"("a": {"type": "atomic", "transitions": {
                    "t": {"target": "a", "order": 1}, "u": {"target": "a", "order": 1}}})")),
                chart);
    EXPECT_THAT(linker.seen, ElementsAre("t", "u"));
    EXPECT_EQ(chart.states.front()->transitions.size(), 2u);
}

TEST(Linker, LeavesNothingOfAChartThatFailsHalfWay)
{
    // a state inside another, both referring to each other, and then the failure
    EXPECT_EQ(failureOfLink(compiledWith(R"("a": {"type": "parallel", "ntrans": 0, "substates": {
                  "b": {"type": "parallel", "ntrans": 0, "substates": {"c": {"type": "atomic", "ntrans": 0}}},
                  "d": {"type": "x"}}})",
                                         "")),
              "invalid state type: 'x'");
}

} // namespace
