// Which transitions an event takes, and in which order they are tried.

#include "statechart/runtime/atomicstate.h"
#include "statechart/runtime/compoundstate.h"
#include "statechart/runtime/initialisationevent.h"
#include "traceactor.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

TEST(Dispatch, LeavesTheChartInItsStartStateAlone)
{
    TraceActor actor(linkedDevice("only", R"("only": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter only"));
    EXPECT_THAT(actor.active(), ElementsAre("only"));
    EXPECT_FALSE(actor.isActive(*actor.chart().initialState));
}

TEST(Dispatch, BeginsAgainAtTheInitialState)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go"}}},
        "b": {"type": "atomic", "onExit": "print(\"left\");"})"));
    actor.begin();
    actor.send("go");
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a"));
    EXPECT_THAT(actor.active(), ElementsAre("a"));
}

TEST(Dispatch, IgnoresAnEventThatTriggersNothing)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "go"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("other"), IsEmpty());
    EXPECT_THAT(actor.active(), ElementsAre("a"));
}

/// Its conditions may dispatch an event of their own.
class ReenteringActor : public TraceActor
{
public:
    using TraceActor::TraceActor;

    bool isPinHigh(const std::string& pin) override
    {
        calls.push_back("asked for " + pin);
        if (pin == "reenter")
            dispatch(NamedEvent("leave"));
        return false;
    }
};

TEST(Dispatch, TriesNoStateThatAConditionHasLeft)
{
    ReenteringActor actor(linkedDevice("p", R"~(
        "p": {"type": "parallel", "transitions": {"t": {"target": "end", "order": 0, "event": "leave"}}, "substates": {
            "r1": {"type": "atomic", "transitions": {"t1": {"target": "r1", "order": 0, "event": "go",
                "conditions": "isPinHigh(\"reenter\")"
}
}
}
, "r2":
{
    "type" : "atomic", "transitions":
    {
        "t2":
        {
            "target" : "r2", "order" : 0, "event" : "go", "conditions" : "isPinHigh(\"x\")"
        }
    }
}
}
},
        "end": {"type": "atomic"})~"));
    actor.begin();
    const Trace trace = actor.send("go");
    EXPECT_THAT(trace, testing::Contains("asked for reenter"));
    // Of two equally deep states either may be tried first: here the one that came first.
    EXPECT_THAT(trace, testing::Not(testing::Contains("asked for x")));
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Dispatch, EntersNoStateTwiceOnOneWay)
{
    auto chart = std::make_shared<DigitalDeviceStateChart>();
    const auto circle = std::make_shared<CompoundState>("circle", nullptr);
    circle->initialSubstate = circle;
    const auto first = std::make_shared<AtomicState>("", nullptr);
    Transition start;
    start.source = first;
    start.target = circle;
    start.event = "init";
    first->transitions.push_back(std::move(start));
    chart->initialState = first;
    chart->states = {circle};
    TraceActor actor(chart);
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter circle"));
    circle->initialSubstate.reset();
}

TEST(Dispatch, TriggersInitByTheInitialisationAlone)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "init"}}},
        "b": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.change(), IsEmpty());
    actor.dispatch(InitialisationEvent());
    EXPECT_THAT(actor.takeTrace(), ElementsAre("exit a", "enter b"));
}

TEST(Dispatch, TriggersChangeByAnInputChange)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "changes": {"target": "a", "order": 0, "event": "changes"},
            "t": {"target": "b", "order": 1, "event": "change"}}},
        "b": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.change(), ElementsAre("exit a", "enter b"));
}

TEST(Dispatch, TakesTheFirstTransitionByOrderWhoseConditionsHold)
{
    TraceActor actor(linkedDevice("a", R"json(
        "a": {"type": "atomic", "transitions": {
            "third": {"target": "c", "order": 3, "event": "go"},
            "first": {"target": "a", "order": -1, "event": "go", "conditions": "isPinHigh(\"p\")"},
            "second": {"target": "b", "order": 2, "event": "go"}}},
        "b": {"type": "atomic"}, "c": {"type": "atomic"})json"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("isPinHigh(p)", "exit a", "enter b"));
}

TEST(Dispatch, TestsConditionsInOrderUpToTheFirstThatDoesNotHold)
{
    TraceActor actor(linkedDevice("a", R"json(
        "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go",
            "conditions": ["isPinHigh(\"p\")", "isPinHigh(\"q\")", "isPinHigh(\"r\")"]}}},
        "b": {"type": "atomic"})json"));
    actor.begin();
    actor.highPins = {"p", "r"};
    EXPECT_THAT(actor.send("go"), ElementsAre("isPinHigh(p)", "isPinHigh(q)"));
    actor.highPins = {"p", "q", "r"};
    EXPECT_THAT(actor.send("go"),
                ElementsAre("isPinHigh(p)", "isPinHigh(q)", "isPinHigh(r)", "exit a", "enter b"));
}

TEST(Dispatch, TakesTheInnerTransitionBeforeTheOuterOnes)
{
    TraceActor actor(linkedDevice("outer", R"(
        "outer": {"type": "compound", "initial": "inner",
            "transitions": {"out": {"target": "end", "order": 0, "event": "go"}},
            "substates": {
                "inner": {"type": "atomic", "transitions": {"in": {"target": "other", "order": 0, "event": "go"}}},
                "other": {"type": "atomic"}}},
        "end": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit inner", "enter other"));
    EXPECT_THAT(actor.send("go"), ElementsAre("exit outer", "enter end"));
}

constexpr auto regions = R"(
    "p": {"type": "parallel", %s
        "substates": {
            "r1": {"type": "compound", "initial": "a1", "substates": {
                "a1": {"type": "atomic", "transitions": {"t1": {"target": "b1", "order": 0, "event": "%s"}}},
                "b1": {"type": "atomic"}}},
            "r2": {"type": "compound", "initial": "a2", "substates": {
                "a2": {"type": "atomic", "transitions": {"t2": {"target": "b2", "order": 0, "event": "%s"}}},
                "b2": {"type": "atomic"}}}}},
    "end": {"type": "atomic"})";

/// @param transitions of the parallel state; the events that step the regions
Chart regionsWith(std::string_view transitions, std::string_view first, std::string_view second)
{
    std::string text = regions;
    for (const std::string_view part : {transitions, first, second})
        text.replace(text.find("%s"), 2, part);
    return linkedDevice("p", text);
}

TEST(Dispatch, FiresATransitionInEachRegion)
{
    TraceActor actor(regionsWith("", "go", "go"));
    actor.begin();
    EXPECT_THAT(actor.active(), ElementsAre("a1", "a2"));
    EXPECT_THAT(actor.send("go"), UnorderedElementsAre("exit a1", "enter b1", "exit a2", "enter b2"));
    EXPECT_THAT(actor.active(), UnorderedElementsAre("b1", "b2"));
}

TEST(Dispatch, TriesTheLeavesThenTheirParentsThenTheParallelStateOnce)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "transitions": {"p": {"target": "p", "order": 0, "event": "go"}},
            "substates": {
                "r1": {"type": "compound", "initial": "a1", "substates": {
                    "a1": {"type": "atomic", "transitions": {"a1": {"target": "a1", "order": 0, "event": "x"}}}},
                    "transitions": {"r1": {"target": "a1", "order": 0, "event": "x"}}},
                "r2": {"type": "compound", "initial": "a2", "substates": {
                    "a2": {"type": "atomic", "transitions": {"a2": {"target": "a2", "order": 0, "event": "x"}}}},
                    "transitions": {"r2": {"target": "a2", "order": 0, "event": "x"}}}}})"));
    actor.begin();
    actor.traceTries = true;
    EXPECT_THAT(actor.send("go"), ElementsAre("try a1", "try a2", "try r1", "try r2", "try p", "exit p",
                                              "enter p", "enter r1", "enter a1", "enter r2", "enter a2"));
}

TEST(Dispatch, TriesTheParallelStateOnceWhenNothingMatches)
{
    TraceActor actor(
        regionsWith(R"("transitions": {"out": {"target": "end", "order": 0, "event": "x"}},)", "x", "x"));
    actor.begin();
    actor.traceTries = true;
    EXPECT_THAT(actor.send("go"), ElementsAre("try t1", "try t2", "try out"));
}

TEST(Dispatch, DoesNotTryTheStatesAroundOneThatTookATransition)
{
    TraceActor actor(
        regionsWith(R"("transitions": {"out": {"target": "end", "order": 0, "event": "go"}},)", "go", "x"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit a1", "enter b1"));
    EXPECT_THAT(actor.active(), ElementsAre("a2", "b1"));
}

TEST(Dispatch, DoesNotVisitARegionThatAStepOfAnotherHasLeft)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "atomic", "transitions": {"t1": {"target": "end", "order": 0, "event": "go"}}},
            "r2": {"type": "atomic", "onExit": "print(\"r2\");",
                "transitions": {"t2": {"target": "end", "order": 0, "event": "go"}}}}},
        "end": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit r1", "exit p", "enter end"));
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Dispatch, TakesATransitionWithoutATriggerOnlyWhenItsActorSaysSo)
{
    class Derived : public TraceActor
    {
    public:
        using TraceActor::TraceActor;
        bool eventMatches(const Transition& transition, const AbstractEvent& event) override
        {
            return !transition.event || TraceActor::eventMatches(transition, event);
        }
    };
    const Chart chart = linkedDevice("a", R"json(
        "a": {"type": "atomic",
            "transitions": {"t": {"target": "b", "order": 0, "conditions": "isPinHigh(\"p\")"}}},
        "b": {"type": "atomic"})json");
    TraceActor plain(chart);
    plain.begin();
    plain.highPins = {"p"};
    EXPECT_THAT(plain.send("go"), IsEmpty());
    EXPECT_THAT(plain.active(), ElementsAre("a"));

    Derived derived(chart);
    derived.begin();
    derived.highPins = {"p"};
    EXPECT_THAT(derived.send("go"), ElementsAre("isPinHigh(p)", "exit a", "enter b"));
}

TEST(Dispatch, LeavesTheActiveStatesAsTheyAreWhenAnActionRaises)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "b", "order": 0, "event": "go", "actions": "etod(\"x\");"},
            "u": {"target": "b", "order": 1, "event": "on"}}},
        "b": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THROW(actor.send("go"), std::runtime_error);
    EXPECT_THAT(actor.takeTrace(), ElementsAre("exit a"));
    EXPECT_THAT(actor.active(), IsEmpty());
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a"));
    EXPECT_THAT(actor.send("on"), ElementsAre("exit a", "enter b"));
}

TEST(Dispatch, IsForEachActorOfASharedChartItsOwn)
{
    const Chart chart = linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go"}}},
        "b": {"type": "atomic"})");
    TraceActor first(chart);
    TraceActor second(chart);
    first.begin();
    second.begin();
    first.send("go");
    EXPECT_THAT(first.active(), ElementsAre("b"));
    EXPECT_THAT(second.active(), ElementsAre("a"));
}

} // namespace
