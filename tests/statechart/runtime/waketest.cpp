// Wakes: when they are scheduled, what they fire, and when they are of no use any more.

#include "traceactor.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

std::vector<std::pair<std::uint64_t, std::string>> pending(const TraceActor& actor)
{
    std::vector<std::pair<std::uint64_t, std::string>> wakes;
    for (const auto& [identifier, transition] : actor.pendingWakes())
        wakes.emplace_back(identifier, transition->identifier);
    return wakes;
}

TEST(Wake, OfAStateEnteredAtStartIsArmedAtStart)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1.5"}}},
        "b": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "scheduleWake(1.5, 1)"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(1u, "t")));
    EXPECT_THAT(actor.wake(1), ElementsAre("exit a", "enter b"));
    EXPECT_THAT(pending(actor), IsEmpty());
}

TEST(Wake, OfATransitionWhoseStateWasLeftDoesNothing)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "c", "order": 0, "event": "wake", "wakeTime": "1"},
            "u": {"target": "b", "order": 1, "event": "go"}}},
        "b": {"type": "atomic"}, "c": {"type": "atomic"})"));
    actor.begin();
    actor.send("go");
    EXPECT_THAT(pending(actor), IsEmpty());
    EXPECT_THAT(actor.wake(1), IsEmpty());
    EXPECT_THAT(actor.active(), ElementsAre("b"));
}

TEST(Wake, IsScheduledForEachTransitionAndTheFirstToFireCancelsTheOther)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1"},
            "u": {"target": "c", "order": 1, "event": "wake", "wakeTime": "2m"}}},
        "b": {"type": "atomic"}, "c": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(),
                ElementsAre("exit ", "enter a", "scheduleWake(1, 1)", "scheduleWake(0.002, 2)"));
    EXPECT_THAT(pending(actor), UnorderedElementsAre(Pair(1u, "t"), Pair(2u, "u")));
    EXPECT_THAT(actor.wake(2), ElementsAre("exit a", "enter c"));
    EXPECT_THAT(pending(actor), IsEmpty());
    EXPECT_THAT(actor.wake(1), IsEmpty());
}

TEST(Wake, OfASelfTransitionArmsItselfAgainUnderANewIdentifier)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "a", "order": 0, "event": "wake", "wakeTime": "1"}}})"));
    actor.begin();
    EXPECT_THAT(actor.wake(1), ElementsAre("exit a", "enter a", "scheduleWake(1, 2)"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(2u, "t")));
    EXPECT_THAT(actor.wake(1), IsEmpty());
    EXPECT_THAT(actor.wake(2), ElementsAre("exit a", "enter a", "scheduleWake(1, 3)"));
}

TEST(Wake, FiresItsOwnTransitionOnly)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "a": {"type": "atomic", "transitions": {
                "t": {"target": "a", "order": 0, "event": "wake", "wakeTime": "1"}}},
            "b": {"type": "atomic", "transitions": {
                "u": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1"}}}}})"));
    actor.begin();
    EXPECT_THAT(actor.wake(2), ElementsAre("exit b", "enter b", "scheduleWake(1, 3)"));
    EXPECT_THAT(actor.wake(7), IsEmpty());
}

TEST(Wake, DoesNotFireWhileConditionsDoNotHoldAndStaysPending)
{
    TraceActor actor(linkedDevice("a", R"json(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1",
                "conditions": "isPinHigh(\"p\")"}}},
        "b": {"type": "atomic"})json"));
    actor.begin();
    EXPECT_THAT(actor.wake(1), ElementsAre("isPinHigh(p)"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(1u, "t")));
    actor.highPins = {"p"};
    EXPECT_THAT(actor.wake(1), ElementsAre("isPinHigh(p)", "exit a", "enter b"));
}

TEST(Wake, StaysPendingWhenItHasFiredAndItsSourceWasNotExited)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "compound", "initial": "b",
            "transitions": {"t": {"target": "c", "order": 0, "event": "wake", "wakeTime": "1"}},
            "substates": {"b": {"type": "atomic"}, "c": {"type": "atomic"}}})"));
    actor.begin();
    EXPECT_THAT(actor.wake(1), ElementsAre("enter c"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(1u, "t")));
    EXPECT_THAT(actor.wake(1), ElementsAre("enter c")) << "it can fire again";
}

TEST(Wake, IsNotScheduledForAStateThatIsEnteredAndLeftInOneDispatch)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "c", "order": 0, "event": "wake", "wakeTime": "1"},
            "u": {"target": "b", "order": 1}}},
        "b": {"type": "atomic"}, "c": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "exit a", "enter b"));
    EXPECT_THAT(pending(actor), IsEmpty());
    EXPECT_THAT(actor.send("go"), IsEmpty());
}

constexpr auto removedWithoutExit = R"(
    "a": {"type": "compound", "initial": "b",
        "transitions": {"u": {"target": "c", "order": 0, "event": "go"}},
        "substates": {"b": {"type": "atomic", "transitions": {
            "t": {"target": "c", "order": 0, "event": "wake", "wakeTime": "1"}}}}},
    "c": {"type": "atomic", "transitions": {"v": {"target": "a", "order": 0, "event": "go"}}})";

TEST(Wake, OfAStateThatWasRemovedAsADescendantStaysPendingAndCannotMatch)
{
    TraceActor actor(linkedDevice("a", removedWithoutExit));
    actor.begin();
    EXPECT_THAT(actor.send("go"), ElementsAre("exit a", "enter c"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(1u, "t")));
    EXPECT_THAT(actor.wake(1), IsEmpty());
    EXPECT_THAT(actor.active(), ElementsAre("c"));
}

TEST(Wake, OfAStateThatWasRemovedAsADescendantMatchesWhenTheStateIsEnteredAgain)
{
    TraceActor actor(linkedDevice("a", removedWithoutExit));
    actor.begin();
    actor.send("go");
    EXPECT_THAT(actor.send("go"), ElementsAre("exit c", "enter a", "enter b", "scheduleWake(1, 2)"));
    EXPECT_THAT(pending(actor), UnorderedElementsAre(Pair(1u, "t"), Pair(2u, "t")));
    EXPECT_THAT(actor.wake(1), ElementsAre("exit b", "exit a", "enter c"));
    EXPECT_THAT(pending(actor), IsEmpty()) << "the exit of the source takes all of its wakes";
}

TEST(Wake, OfAStateThatWasRemovedAsADescendantWithinTheDispatchIsArmedAllTheSame)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "a": {"type": "atomic", "transitions": {
                "t": {"target": "a", "order": 0, "event": "wake", "wakeTime": "1"}}},
            "b": {"type": "atomic", "transitions": {"u": {"target": "end", "order": 0}}}}},
        "end": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter p", "enter a", "enter b", "exit b", "exit p",
                                           "enter end", "scheduleWake(1, 1)"));
    EXPECT_THAT(pending(actor), ElementsAre(Pair(1u, "t")));
}

TEST(Wake, TimesAreEvaluatedInTheActorAfterAllEntryActions)
{
    TraceActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "a": {"type": "atomic", "onEntry": "print(\"a\");", "transitions": {"t": {"target": "a", "order": 0,
                "event": "wake", "wakeTimeCalc": "getParameter_double(\"OUTPUT_DELAY\") * 2"}}},
            "b": {"type": "atomic", "onEntry": "print(\"b\");"}}})"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter p", "enter a", "print(a)", "enter b", "print(b)",
                                           "getParameter_double(OUTPUT_DELAY)", "scheduleWake(5, 1)"));
}

TEST(Wake, IdentifiersAreNotUsedAgainInALaterRun)
{
    TraceActor actor(linkedDevice("a", R"(
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "a", "order": 0, "event": "wake", "wakeTime": "1"}}})"));
    actor.begin();
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "scheduleWake(1, 2)"));
}

TEST(DeviceStart, CopiesTheVariablesOfTheChartIntoTheActor)
{
    class Device : public TraceActor
    {
    public:
        using TraceActor::TraceActor;
        void print(const std::string&) override
        {
            auto& count = std::get<std::int32_t>(deviceVariables().at("n"));
            RecordingActor::print(formatText("{}", ++count));
        }
    };
    const Chart chart = linkDeviceStateChart(compiledDevice(R"({"outputs": {}, "outputDelay": 1, "start": "a",
            "variables": {"n": {"type": "int", "value": 4}},
            "states": {"a": {"type": "atomic", "onEntry": "print(\"\");"}}})"),
                                             deviceCodeBuilder());
    Device actor(chart);
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "print(5)"));
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "print(5)")) << "a start begins anew";
    EXPECT_EQ(chart->variables.at("n"), DeviceVariableValue(4));
}

/// A device whose variables may be read from outside.
class VariableDevice : public TraceActor
{
public:
    using TraceActor::heldVariable;
    using TraceActor::holdVariable;
    using TraceActor::TraceActor;
};

TEST(DeviceVariables, AreReadAsTheTypeThatTheyHold)
{
    VariableDevice actor(
        linkDeviceStateChart(compiledDevice(R"({"outputs": {}, "outputDelay": 1, "start": "a",
            "variables": {"n": {"type": "int64_t", "value": 4}, "s": {"type": "string", "value": "x"}},
            "states": {"a": {"type": "atomic"}}})"),
                             deviceCodeBuilder()));
    EXPECT_EQ(failureOf([&] { actor.heldVariable<std::int64_t>("n"); }), "unknown variable: 'n'")
        << "before the start";
    actor.begin();
    EXPECT_EQ(actor.heldVariable<std::int64_t>("n"), 4);
    EXPECT_EQ(actor.heldVariable<std::string>("s"), "x");
    EXPECT_EQ(failureOf([&] { actor.heldVariable<std::int32_t>("n"); }),
              "variable 'n' is read as 'int', and holds 'int64_t'");
    EXPECT_EQ(failureOf([&] { actor.heldVariable<bool>("s"); }),
              "variable 's' is read as 'bool', and holds 'string'");
    EXPECT_EQ(failureOf([&] { actor.heldVariable<double>("m"); }), "unknown variable: 'm'");
}

TEST(DeviceVariables, HoldTheTypeOfTheLastValue)
{
    VariableDevice actor(
        linkDeviceStateChart(compiledDevice(R"({"outputs": {}, "outputDelay": 1, "start": "a",
            "variables": {"n": {"type": "int", "value": 4}}, "states": {"a": {"type": "atomic"}}})"),
                             deviceCodeBuilder()));
    actor.begin();
    actor.holdVariable("n", 5);
    EXPECT_EQ(actor.heldVariable<std::int32_t>("n"), 5);
    actor.holdVariable("n", true);
    EXPECT_EQ(actor.heldVariable<bool>("n"), true);
    EXPECT_EQ(failureOf([&] { actor.holdVariable("m", 1); }), "unknown variable: 'm'");
}

} // namespace
