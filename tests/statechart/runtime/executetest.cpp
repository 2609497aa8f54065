// What a transition leaves and enters. Several of these rules are not those of textbooks.

#include "traceactor.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(Exit, OfACompoundStateRunsNoExitActionsOfWhatIsInside)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b", "onExit": "print(\"a\");",
            "transitions": {"t": {"target": "end", "order": 0, "event": "go"}},
            "substates": {"b": {"type": "atomic", "onExit": "print(\"b\");"}, "c": {"type": "atomic"}}},
        "end": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("print(a)", "exit a", "enter end"));
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Exit, GoesFromTheSourceUpward)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b", "onExit": "print(\"a\");",
            "substates": {"b": {"type": "atomic", "onExit": ["print(\"b1\");", "print(\"b2\");"],
                "transitions": {"t": {"target": "end", "order": 0, "event": "go", "actions": "print(\"t\");"}}}}},
        "end": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("print(b1)", "print(b2)", "exit b", "print(a)", "exit a",
                                              "print(t)", "enter end"));
}

TEST(Exit, OfAParallelStateRemovesOtherRegionsWithoutAWord)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "atomic", "transitions": {"t": {"target": "end", "order": 0, "event": "go"}}},
            "r2": {"type": "compound", "initial": "c", "onExit": "print(\"r2\");",
                "substates": {"c": {"type": "atomic", "onExit": "print(\"c\");"}}}}},
        "end": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit r1", "exit p", "enter end"));
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Exit, StopsBelowAStateAroundTheTarget)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b", "onExit": "print(\"a\");", "substates": {
            "b": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0, "event": "go"}}},
            "c": {"type": "atomic"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit b", "enter c"));
}

TEST(Exit, DoesNotHappenWhenTheTargetIsInsideTheSource)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b",
            "transitions": {"t": {"target": "c", "order": 0, "event": "go"}},
            "substates": {"b": {"type": "atomic"}, "c": {"type": "atomic"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("enter c"));
    EXPECT_THAT(actor.active(), ElementsAre("b", "c")) << "nothing takes b out of the list";
}

TEST(Transition, ToItsOwnSourceRunsExitThenActionsThenEntry)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "onEntry": "print(\"in\");", "onExit": "print(\"out\");", "transitions": {
            "t": {"target": "a", "order": 0, "event": "go", "actions": ["print(\"1\");", "print(\"2\");"]}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"),
                ElementsAre("print(out)", "exit a", "print(1)", "print(2)", "enter a", "print(in)"));
    EXPECT_THAT(actor.active(), ElementsAre("a"));
}

constexpr auto toAncestor = R"({
    "states": {"a": {"type": "compound", "initial": "b", "ntrans": 0,
        "substates": {"b": {"type": "atomic", "ntrans": 1}}}},
    "start": "a", "nstates": 1,
    "transitions": {"t": {"src": "b", "tgt": "a", "order": 0, "local": %s, "event": "go"}},
    "inputBuses": {}, "inputPins": {}, "outputBuses": {}, "outputPins": {}, "variables": {}, "parameters": {}})";

TEST(Transition, ToAnAncestorLeavesItAndEntersItAgainWhateverLocalSays)
{
    for (const char* local : {"true", "false"}) {
        std::string text = toAncestor;
        text.replace(text.find("%s"), 2, local);
        TraceActor actor(linkedText(text));
        actor.begin();
        EXPECT_THAT(actor.send("go"), ElementsAre("exit b", "exit a", "enter a", "enter b")) << local;
    }
}

TEST(Transition, IsDroppedWhenAnEarlierStepHasLeftItsSource)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "atomic", "transitions": {"t1": {"target": "end", "order": 0}}},
            "r2": {"type": "atomic", "transitions": {"t2": {"target": "end", "order": 0}}}}},
        "end": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(),
                ElementsAre("exit ", "enter p", "enter r1", "enter r2", "exit r2", "exit p", "enter end"))
        << "pending transitions run from the last to the first, and the first is stale by then";
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Enter, OfANestedStateFromOutsideEntersNoStateAroundIt)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "y", "order": 0, "event": "go"}}},
        "b": {"type": "compound", "initial": "x", "onEntry": "print(\"b\");", "substates": {
            "x": {"type": "atomic"}, "y": {"type": "atomic", "onEntry": "print(\"y\");"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit a", "enter y", "print(y)"));
    EXPECT_THAT(actor.active(), ElementsAre("y"));
}

TEST(Enter, OfAStateInOneRegionFromOutsideLeavesTheOtherRegionsOut)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "r1", "order": 0, "event": "go"}}},
        "p": {"type": "parallel", "substates": {"r1": {"type": "atomic"}, "r2": {"type": "atomic"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit a", "enter r1"));
    EXPECT_THAT(actor.active(), ElementsAre("r1"));
}

TEST(Enter, TellsOfAStateBeforeItsEntryActionsAndGoesDownThroughInitialStates)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "c", "onEntry": "print(\"a\");", "substates": {
            "b": {"type": "atomic"},
            "c": {"type": "parallel", "onEntry": "print(\"c\");", "substates": {
                "r1": {"type": "atomic", "onEntry": "print(\"r1\");"}, "r2": {"type": "atomic"}}}}})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "print(a)", "enter c", "print(c)", "enter r1",
                                           "print(r1)", "enter r2"));
    EXPECT_THAT(actor.active(), ElementsAre("r1", "r2"));
}

TEST(Enter, KeepsAnAtomicStateThatIsActiveAlreadyOnceInTheList)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b",
            "transitions": {"t": {"target": "b", "order": 0, "event": "go"}},
            "substates": {"b": {"type": "atomic"}}})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("enter b"));
    EXPECT_THAT(actor.active(), ElementsAre("b"));
}

TEST(Pending, TransitionThatHoldsKeepsTheSubstatesFromBeingEntered)
{
    TraceActor actor(linkedDevice("a", R"json(
        "a": {"type": "compound", "initial": "b",
            "transitions": {"t": {"target": "end", "order": 0, "conditions": "isPinHigh(\"p\")"}},
            "substates": {"b": {"type": "atomic"}}},
        "end": {"type": "atomic"})json"));
    actor.highPins = {"p"};
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "isPinHigh(p)"));
    EXPECT_THAT(actor.active(), IsEmpty()) << "nothing in a is active, so the transition is dropped";
    EXPECT_FALSE(actor.isActive(*actor.chart().states.front()));

    actor.highPins.clear();
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "isPinHigh(p)", "enter b"));
}

TEST(Pending, TransitionOfACompoundStateIsTakenWhenSomethingInItIsActive)
{
    TraceActor actor(linkedDevice("a", R"json(
        "a": {"type": "compound", "initial": "b",
            "transitions": {"go": {"target": "b", "order": 0, "event": "go"}},
            "substates": {"b": {"type": "compound", "initial": "c", "substates": {"c": {"type": "atomic"}},
                "transitions": {"t": {"target": "end", "order": 0, "conditions": "isPinHigh(\"p\")"}}}}},
        "end": {"type": "atomic"})json"));
    actor.begin();
    actor.highPins = {"p"};
    EXPECT_THAT(actor.send("go"), ElementsAre("enter b", "isPinHigh(p)", "exit b", "exit a", "enter end"));
    EXPECT_THAT(actor.active(), ElementsAre("end"));
}

TEST(Pending, ChainOfTransitionsRunsToItsEndWithinTheDispatch)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go"}}},
        "b": {"type": "atomic", "transitions": {"u": {"target": "c", "order": 0, "actions": "print(\"u\");"}}},
        "c": {"type": "atomic", "transitions": {"v": {"target": "d", "order": 0}}},
        "d": {"type": "atomic"})"));
    actor.begin();
    EXPECT_THAT(actor.send("go"),
                ElementsAre("exit a", "enter b", "exit b", "print(u)", "enter c", "exit c", "enter d"));
    EXPECT_THAT(actor.active(), ElementsAre("d"));
}

TEST(Pending, TransitionBackToItsStateGoesOnWithoutEnd)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0}}})"));
    actor.entriesLeft = 5000;
    EXPECT_THROW(actor.begin(), EndlessRun);
    EXPECT_EQ(actor.takeTrace().size(), 2 * 5001u);
}

TEST(Pending, TransitionsOfRegionsRunFromTheLastToTheFirst)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "compound", "initial": "a1", "substates": {
                "a1": {"type": "atomic", "transitions": {"t1": {"target": "b1", "order": 0}}},
                "b1": {"type": "atomic"}}},
            "r2": {"type": "compound", "initial": "a2", "substates": {
                "a2": {"type": "atomic", "transitions": {"t2": {"target": "b2", "order": 0}}},
                "b2": {"type": "atomic"}}}}})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter p", "enter r1", "enter a1", "enter r2", "enter a2",
                                           "exit a2", "enter b2", "exit a1", "enter b1"));
    EXPECT_THAT(actor.active(), ElementsAre("b2", "b1"));
}

} // namespace
