// What one who looks on is told, and what the run-time knows of itself when something goes wrong.

#include "traceactor.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Writes down what it is told among the calls of an actor.
class TracingObserver : public AbstractActorObserver
{
public:
    explicit TracingObserver(Trace& trace) : m_trace(trace) {}

    void transitionTaken(const Transition& transition) override
    {
        m_trace.push_back("taken " + transition.identifier);
    }

    void codeBegins(const ActorCode& code) override
    {
        constexpr const char* kinds[] = {"entry", "exit", "condition", "action", "wake time"};
        EXPECT_NE(code.state == nullptr, code.transition == nullptr) << "one of them owns the code";
        last = formatText("{} {} of {}", kinds[static_cast<int>(code.kind)], code.index,
                          code.state != nullptr ? code.state->identifier : code.transition->identifier);
        m_trace.push_back("begin " + last);
    }

    void conditionTested(const Transition& transition, std::size_t index, bool holds) override
    {
        m_trace.push_back(formatText("tested {} of {}: {}", index, transition.identifier, holds));
    }

    std::string last;

private:
    Trace& m_trace;
};

class ObservedActor : public TraceActor
{
public:
    explicit ObservedActor(Chart chart) : TraceActor(std::move(chart)) { setObserver(&observer); }

    TracingObserver observer{calls};
};

TEST(Observer, IsToldOfTransitionsConditionsAndCodeInTheirOrder)
{
    ObservedActor actor(linkedDevice("a", R"json(
        "a": {"type": "atomic", "onExit": "print(\"out\");", "transitions": {
            "t": {"target": "b", "order": 0, "event": "go", "conditions": ["isPinHigh(\"p\")", "isPinLow(\"p\")"],
                "actions": ["print(\"1\");", "print(\"2\");"]}}},
        "b": {"type": "atomic", "onEntry": "print(\"in\");", "transitions": {
            "w": {"target": "a", "order": 0, "event": "wake", "wakeTime": "2"}}})json"));
    EXPECT_THAT(actor.begin(), ElementsAre("taken ", "exit ", "enter a"));
    EXPECT_THAT(actor.send("go"),
                ElementsAre("begin condition 0 of t", "isPinHigh(p)", "tested 0 of t: false"));
    actor.highPins = {"p"};
    EXPECT_THAT(actor.send("go"),
                ElementsAre("begin condition 0 of t", "isPinHigh(p)", "tested 0 of t: true",
                            "begin condition 1 of t", "isPinLow(p)", "tested 1 of t: true", "taken t",
                            "begin exit 0 of a", "print(out)", "exit a", "begin action 0 of t", "print(1)",
                            "begin action 1 of t", "print(2)", "enter b", "begin entry 0 of b", "print(in)",
                            "begin wake time 0 of w", "scheduleWake(2, 1)"));
}

TEST(Observer, IsToldOfConditionsThatAreTestedOnEntry)
{
    ObservedActor actor(linkedDevice("a", R"json(
        "a": {"type": "atomic",
            "transitions": {"t": {"target": "b", "order": 0, "conditions": "isPinHigh(\"p\")"}}},
        "b": {"type": "atomic"})json"));
    EXPECT_THAT(actor.begin(), ElementsAre("taken ", "exit ", "enter a", "begin condition 0 of t",
                                           "isPinHigh(p)", "tested 0 of t: false"));
}

TEST(Observer, IsNotToldOfAStaleTransition)
{
    ObservedActor actor(linkedDevice("p", R"(
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "atomic", "transitions": {"t1": {"target": "end", "order": 0}}},
            "r2": {"type": "atomic", "transitions": {"t2": {"target": "end", "order": 0}}}}},
        "end": {"type": "atomic"})"));
    EXPECT_THAT(actor.begin(), ElementsAre("taken ", "exit ", "enter p", "enter r1", "enter r2", "taken t2",
                                           "exit r2", "exit p", "enter end"));
}

TEST(Observer, KnowsWhichCodeRaisedAnException)
{
    const std::vector<std::pair<std::string, std::string>> failures{
        {R"("onEntry": ["print(\"\");", "etod(\"x\");"])", "entry 1 of a"},
        {R"("onExit": "etod(\"x\");", "transitions": {"t": {"target": "a", "order": 0, "event": "go"}})",
         "exit 0 of a"},
        {R"("transitions": {"t": {"target": "a", "order": 0, "event": "go", "actions": "etod(\"x\");"}})",
         "action 0 of t"},
        {R"("transitions": {"t": {"target": "a", "order": 0, "event": "go",
             "conditions": ["true", "etod(\"x\") > 0"]}})",
         "condition 1 of t"},
        {R"("transitions": {"t": {"target": "a", "order": 0, "event": "wake",
             "wakeTimeCalc": "etod(\"x\") + 0"}})",
         "wake time 0 of t"},
    };
    for (const auto& [members, place] : failures) {
        ObservedActor actor(linkedDevice("a", R"("a": {"type": "atomic", )" + members + "}"));
        EXPECT_THROW((actor.begin(), actor.send("go")), std::runtime_error) << members;
        EXPECT_EQ(actor.observer.last, place);
    }
}

TEST(Observer, CanLeave)
{
    ObservedActor actor(linkedDevice("a", R"("a": {"type": "atomic", "onEntry": "print(\"\");"})"));
    actor.setObserver(nullptr);
    EXPECT_THAT(actor.begin(), ElementsAre("exit ", "enter a", "print()"));
    EXPECT_THAT(actor.observer.last, IsEmpty());
}

} // namespace
