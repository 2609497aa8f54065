#include "outlineof.h"

#include "simulator/devicefile.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/runtime/abstractstate.h"
#include "support/concatenated.h"

namespace {

std::vector<std::string> pathsOf(const ChartOutline& outline)
{
    std::vector<std::string> paths;
    for (const ChartOutline::State& state : outline.states)
        paths.push_back(state.path);
    return paths;
}

std::vector<std::string> endsOf(const ChartOutline& outline)
{
    std::vector<std::string> ends;
    for (const ChartOutline::Transition& transition : outline.transitions)
        ends.push_back(transition.identifier + ": " + outline.states[transition.source].path + " to " +
                       (transition.target ? outline.states[*transition.target].path : "nothing"));
    return ends;
}

std::string pathOf(const AbstractState& state)
{
    return state.parent ? concatenated({pathOf(*state.parent), "/", state.identifier}) : state.identifier;
}

/// The same of the chart that is linked.
std::vector<std::string> linkedEndsOf(const std::string& states)
{
    const JsonObject compiled = compiledDeviceOf(
        {concatenated({R"({"outputs": {}, "outputDelay": "1n", "start": "a", "states": {)", states, "}}"}),
         {}});
    const auto chart = linkDeviceStateChart(compiled, DDCodeBuilderFactory::createCodeBuilder());
    std::vector<std::string> ends;
    for (const auto& state : chart->allStates())
        for (const Transition& transition : state->transitions)
            ends.push_back(concatenated({transition.identifier, ": ", pathOf(*transition.source), " to ",
                                         pathOf(*transition.target)}));
    return ends;
}

ChartOutline::Transition plainTransition()
{
    ChartOutline::Transition transition;
    transition.identifier = "t";
    return transition;
}

} // namespace

TEST(ChartOutline, HasAStateBeforeThoseInsideIt)
{
    const ChartOutline outline = outlineOf(R"json(
        "a": {"type": "compound", "initial": "c", "onEntry": "x();", "onExit": ["y();", "z();"], "substates": {
            "b": {"type": "atomic"}, "c": {"type": "parallel", "substates": {"d": {"type": "atomic"}}}}},
        "e": {"type": "atomic"})json");
    EXPECT_THAT(pathsOf(outline), testing::ElementsAre("a", "a/b", "a/c", "a/c/d", "e"));
    EXPECT_THAT(outline.topLevel, testing::ElementsAre(0u, 4u));
    EXPECT_EQ(outline.start, 0u);
    EXPECT_EQ(outline.states[0].type, ChartOutline::Type::compound);
    EXPECT_EQ(outline.states[0].initial, 2u);
    EXPECT_THAT(outline.states[0].children, testing::ElementsAre(1u, 2u));
    EXPECT_THAT(outline.states[0].onEntry, testing::ElementsAre("x();"));
    EXPECT_THAT(outline.states[0].onExit, testing::ElementsAre("y();", "z();"));
    EXPECT_EQ(outline.states[2].type, ChartOutline::Type::parallel);
    EXPECT_EQ(outline.states[2].initial, std::nullopt);
    EXPECT_EQ(outline.states[3].parent, 2u);
    EXPECT_TRUE(outline.isInside(3, 0));
    EXPECT_FALSE(outline.isInside(0, 0));
    EXPECT_FALSE(outline.isInside(0, 3));
}

TEST(ChartOutline, ResolvesANameThatTwoStatesHaveAsLinkingDoes)
{
    struct Case
    {
        const char* states;
        std::vector<std::string> ends;
    };
    const Case cases[] = {
        {R"json("b": {"type": "compound", "initial": "a", "substates": {
                    "a": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 1}}}}},
                "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 2}}})json",
         {"u: b/a to b/a", "t: b/a to b"}},
        {R"json("a": {"type": "compound", "initial": "a", "substates": {
                    "a": {"type": "atomic", "transitions": {"u": {"target": "b", "order": 1}}}},
                    "transitions": {"t": {"target": "a", "order": 1}}},
                "b": {"type": "atomic"})json",
         {"u: a/a to b", "t: a/a to a/a"}},
        {R"json("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 2}}},
                "b": {"type": "compound", "initial": "a", "substates": {
                    "a": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 1}}}}})json",
         {"u: a to a", "t: a to b"}},
    };
    for (const auto& [states, ends] : cases) {
        EXPECT_EQ(endsOf(outlineOf(states)), ends);
        EXPECT_EQ(linkedEndsOf(states), ends);
    }
}

TEST(ChartOutline, BeginsAtTheTopLevelAndInitialStatesBelowTheirParent)
{
    const ChartOutline outline = outlineOf(R"json(
        "b": {"type": "compound", "initial": "a", "substates": {"a": {"type": "atomic"}}},
        "a": {"type": "atomic"})json");
    EXPECT_EQ(outline.start, 2u);
    EXPECT_EQ(outline.states[0].initial, 1u);
}

TEST(ChartOutline, HasTransitionsInTheOrderInWhichTheyAreTried)
{
    const ChartOutline outline = outlineOf(R"json(
        "a": {"type": "atomic", "transitions": {
            "last": {"target": "b", "order": 7}, "first": {"target": "a", "order": -1},
            "tie1": {"target": "a", "order": 3}, "tie2": {"target": "a", "order": 3}}},
        "b": {"type": "atomic", "transitions": {"only": {"target": "nowhere", "order": 0}}})json");
    EXPECT_THAT(endsOf(outline), testing::ElementsAre("first: a to a", "tie1: a to a", "tie2: a to a",
                                                      "last: a to b", "only: b to nothing"));
    EXPECT_TRUE(outline.transitions[0].isOneOfSeveral);
    EXPECT_FALSE(outline.transitions[4].isOneOfSeveral);
    EXPECT_EQ(outline.transitions[4].targetName, "nowhere");
}

TEST(ChartOutline, TakesTheFirstOfTwoEqualKeys)
{
    EXPECT_THAT(pathsOf(outlineOf(R"("a": {"type": "atomic"}, "a": {"type": "parallel", "substates": {}})")),
                testing::ElementsAre("a"));
}

TEST(ChartOutline, KnowsTheTriggersOfTransitions)
{
    const ChartOutline outline = outlineOf(R"json("a": {"type": "atomic", "transitions": {
        "n": {"target": "a", "order": 0}, "c": {"target": "a", "order": 1, "event": "change"},
        "w": {"target": "a", "order": 2, "event": "wake", "wakeTime": "3n", "wakeTimeCalc": "x()"},
        "v": {"target": "a", "order": 3, "event": "wake", "wakeTimeCalc": "x()"},
        "i": {"target": "a", "order": 4, "event": "change", "wakeTime": "3n"}}})json");
    EXPECT_EQ(outline.transitions[0].event, std::nullopt);
    EXPECT_EQ(outline.transitions[1].event, "change");
    EXPECT_EQ(outline.transitions[2].wakeTime, "3n");
    EXPECT_EQ(outline.transitions[2].wakeTimeCalc, std::nullopt);
    EXPECT_EQ(outline.transitions[3].wakeTimeCalc, "x()");
    EXPECT_EQ(outline.transitions[4].wakeTime, std::nullopt);
}

TEST(ChartLabel, SaysOrderTriggerConditionsAndActions)
{
    ChartOutline::Transition transition = plainTransition();
    EXPECT_TRUE(labelOf(transition).empty());
    transition.conditions = {"x", "y"};
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("[x && y]"));
    transition.isOneOfSeveral = true;
    transition.order = 4;
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("4: [x && y]"));
    transition.event = "change";
    transition.actions = {"p();", "q();"};
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("4: change [x && y]", "/ p();", "q();"));
    transition.event = "wake";
    transition.wakeTime = "2n";
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("4: after 2n [x && y]", "/ p();", "q();"));
    transition.wakeTime.reset();
    transition.wakeTimeCalc = "f()";
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("4: after (f()) [x && y]", "/ p();", "q();"));
}

TEST(ChartLabel, HasActionsAlone)
{
    ChartOutline::Transition transition = plainTransition();
    transition.actions = {"p();", "q();"};
    EXPECT_THAT(labelOf(transition), testing::ElementsAre("/ p();", "q();"));
}

TEST(ChartLabel, OfAStateListsItsActions)
{
    ChartOutline::State state;
    state.onEntry = {"x();", "y();"};
    state.onExit = {"z();"};
    EXPECT_THAT(bodyOf(state), testing::ElementsAre("entry / x();", "entry / y();", "exit / z();"));
}

TEST(ChartUsage, ReadsACoverage)
{
    const ChartUsage usage(R"({"states": [{"state": "a\/b", "entered": 3}],
                               "transitions": [{"transition": "t", "taken": 2}]})");
    EXPECT_EQ(usage.entered("a/b"), 3);
    EXPECT_EQ(usage.entered("b"), 0);
    EXPECT_EQ(usage.taken("t"), 2);
    EXPECT_EQ(usage.taken("u"), 0);
}

TEST(ChartUsage, IsRefusedWhenItIsNoCoverage)
{
    for (const char* text : {"", "[]", "{}", R"({"states": []})", R"({"states": 1, "transitions": []})",
                             R"({"states": [{"state": 1, "entered": 1}], "transitions": []})",
                             R"({"states": [{"state": "a", "entered": "1"}], "transitions": []})"})
        EXPECT_THROW(ChartUsage{text}, std::exception) << text;
}
