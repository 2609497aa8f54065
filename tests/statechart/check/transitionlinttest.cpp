#include "lintcase.h"

namespace {

class UnknownTarget : public testing::TestWithParam<LintCase>
{};

TEST_P(UnknownTarget, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::unknownTarget);
}

const std::vector<LintCase> targets{
    {"aNameOfNoState", transitionsOf(R"("t": {"target": «"nowhere"», "order": 0, "event": "change",
        "conditions": "simulationTime() > 2.0"})"),
     "'nowhere': no such state"},
    {"theNearestName", chartOf(R"("a": {"type": "atomic", "transitions": {
        "t": {"target": «"idel"», "order": 0, "event": "change"},
        "u": {"target": "idle", "order": 1, "event": "wake", "wakeTime": "1u"}}}, "idle": {"type": "atomic"})"),
     "'idel': no such state; did you mean 'idle'?"},
    {"aTargetThatIsNoString", transitionsOf(R"("t": {"target": «1», "order": 0, "event": "change",
        "conditions": "simulationTime() > 2.0"})"),
     "the target of a transition is the identifier of a state"},
    {"behindOtherAlphabets", transitionsOf(R"("t": {"é": "日本", "target": «"nowhere"», "order": 0,
        "event": "change", "conditions": "simulationTime() > 2.0"})"),
     "'nowhere': no such state"},
    {"aNestedState", chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {
        "b": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0, "event": "change"}}},
        "c": {"type": "atomic"}}})")},
};
INSTANTIATE_TEST_SUITE_P(Targets, UnknownTarget, testing::ValuesIn(targets));

class TargetInsideSource : public testing::TestWithParam<LintCase>
{};

TEST_P(TargetInsideSource, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::targetInsideSource);
}

const std::vector<LintCase> insides{
    {"aChild", chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "atomic"},
        "c": {"type": "atomic"}}, "transitions": {"t": {"target": «"c"», "order": 0, "event": "change"}}})"),
     "'c' is inside of 'a', which the transition does not exit"},
    {"behindOtherAlphabets",
     chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "atomic"},
        "c": {"type": "atomic"}}, "transitions": {"t": {"é": "日本", "target": «"c"», "order": 0, "event": "change"}}})"),
     "'c' is inside of 'a', which the transition does not exit"},
    {"aGrandchild", chartOf(R"("a": {"type": "parallel", "substates": {"b": {"type": "compound",
        "initial": "c", "substates": {"c": {"type": "atomic"}}}},
        "transitions": {"t": {"target": «"c"», "order": 0, "event": "change"}}})"),
     "'c' is inside of 'a', which the transition does not exit"},
    {"theStateItself", chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {
        "b": {"type": "atomic"}}, "transitions": {"t": {"target": "a", "order": 0, "event": "change"}}})")},
    {"theStateAround", chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {
        "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "change"}}}}})")},
};
INSTANTIATE_TEST_SUITE_P(Targets, TargetInsideSource, testing::ValuesIn(insides));

class InvalidOrder : public testing::TestWithParam<LintCase>
{};

TEST_P(InvalidOrder, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::invalidOrder);
}

const std::vector<LintCase> orders{
    {"aText",
     transitionsOf(R"("t": {"target": "b", "é": "日本", "order": «"x"», "event": "wake", "wakeTime": "1u"})"),
     "the order of a transition is an integer"},
    {"aDouble", transitionsOf(R"("t": {"target": "b", "order": «1.0», "event": "wake", "wakeTime": "1u"})"),
     "the order of a transition is an integer"},
    {"aList", transitionsOf(R"("t": {"target": "b", «"order"»: [1], "event": "wake", "wakeTime": "1u"})"),
     "the order of a transition is an integer"},
    {"aNegativeInteger",
     transitionsOf(R"("t": {"target": "b", "order": -7, "event": "wake", "wakeTime": "1u"})")},
};
INSTANTIATE_TEST_SUITE_P(Orders, InvalidOrder, testing::ValuesIn(orders));

class ShadowedTransition : public testing::TestWithParam<LintCase>
{};

TEST_P(ShadowedTransition, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::shadowedTransition);
}

const std::vector<LintCase> shadows{
    {"anEarlierOneWithoutConditions", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "change"},
         «"u"»: {"target": "a", "order": 1, "event": "change", "conditions": "simulationTime() > 1.0"}}})"),
     "'u' is never taken: 't' comes first and has no conditions"},
    {"anEmptyListOfConditions", chartOf(R"("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "a", "order": 2, "event": "change", "conditions": "simulationTime() > 1.0"},
         "u": {"target": "a", "order": -1, "event": "change", "conditions": []}}})"),
     "'t' is never taken: 'u' comes first and has no conditions"},
    {"oneWithoutEvent", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "b", "order": 0}, «"u"»: {"target": "b", "order": 1}}}, "b": {"type": "atomic"})"),
     "'u' is never taken: 't' comes first and has no conditions"},
    {"behindOtherAlphabets", chartOf(R"("a": {"type": "atomic", "é": "日本", "transitions": {«"u"»: {
         "target": "a", "order": 1, "event": "change"}, "t": {"target": "a", "order": 0, "event": "change"}}})"),
     "'u' is never taken: 't' comes first and has no conditions"},
    {"anotherEvent", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "b", "order": 0, "event": "change"},
         "u": {"target": "b", "order": 1, "conditions": "simulationTime() > 1.0"}}}, "b": {"type": "atomic"})")},
    {"twoWakes", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "wake", "wakeTime": "2u"},
         "u": {"target": "a", "order": 1, "event": "wake", "wakeTime": "1u"}}})")},
    {"theSameOrder", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "change"},
         "u": {"target": "a", "order": 0, "event": "change", "conditions": "simulationTime() > 1.0"}}})")},
    {"anEarlierOneWithConditions", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "change", "conditions": "simulationTime() > 1.0"},
         "u": {"target": "a", "order": 1, "event": "change"}}})")},
    {"anotherState", chartOf(R"("a": {"type": "compound", "initial": "b", "transitions": {
         "t": {"target": "a", "order": 1, "event": "change"}}, "substates": {"b": {"type": "atomic",
             "transitions": {"u": {"target": "b", "order": 0, "event": "change"}}}}})")},
};
INSTANTIATE_TEST_SUITE_P(Shadows, ShadowedTransition, testing::ValuesIn(shadows));

TEST(ShadowedTransitions, StandBehindOnesWhoseConditionsAlwaysHold)
{
    const std::string definition = chartOf(R"("a": {"type": "atomic", "transitions": {
        "t": {"target": "a", "order": 0, "event": "change", "conditions": ["true", "etod(\"1u\") > 0.0"]},
        "u": {"target": "a", "order": 1, "event": "change"}}})");
    EXPECT_EQ(textsOf(checkDefinition(definition)),
              "this condition is always true\nthis condition is always true\n"
              "'u' is never taken: 't' comes first and its conditions always hold\n");
}

TEST(ShadowedTransitions, DoNotStandBehindOneThatLeadsNowhere)
{
    const std::string definition = chartOf(R"("a": {"type": "atomic", "transitions": {
        "t": {"target": "zz", "order": 0, "event": "change"},
        "u": {"target": "a", "order": 1, "event": "change"}}})");
    EXPECT_EQ(textsOf(checkDefinition(definition)), "'zz': no such state\n");
}

class UnknownEvent : public testing::TestWithParam<LintCase>
{};

TEST_P(UnknownEvent, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::unknownEvent);
}

const std::vector<LintCase> events{
    {"aMisspeltName", transitionsOf(R"("t": {"target": "b", "order": 0, "event": «"chagne"»})"),
     "'chagne': no such event; did you mean 'change'?"},
    {"anotherName", transitionsOf(R"("t": {"target": "b", "order": 0, "event": «"reset"»})"),
     "'reset': no such event"},
    {"behindOtherAlphabets",
     transitionsOf(R"("t": {"target": "b", "order": 0, "é": "日本", "event": «"reset"»})"),
     "'reset': no such event"},
    {"anEventThatIsNoString", transitionsOf(R"("t": {"target": "b", "order": 0, "event": «null»})"),
     R"(the event of a transition is "change" or "wake")"},
    {"theEventOfTheStart", transitionsOf(R"("t": {"target": "b", "order": 0, "event": «"init"»})"),
     "'init': the chart's own start takes this event before any state is active"},
    {"theTwoEventsOfDevices", transitionsOf(R"("t": {"target": "b", "order": 0, "event": "wake",
        "wakeTime": "1u"})")},
};
INSTANTIATE_TEST_SUITE_P(Events, UnknownEvent, testing::ValuesIn(events));

class WakeWithoutTime : public testing::TestWithParam<LintCase>
{};

TEST_P(WakeWithoutTime, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::wakeWithoutTime);
}

const std::vector<LintCase> wakes{
    {"neitherTime", transitionsOf(R"("t": {"target": "b", "order": 0, "event": «"wake"»})"),
     R"(a "wake" transition without "wakeTime" or "wakeTimeCalc" is never taken)"},
    {"behindOtherAlphabets",
     transitionsOf(R"("t": {"target": "b", "é": "日本", "order": 0, "event": «"wake"»})"),
     R"(a "wake" transition without "wakeTime" or "wakeTimeCalc" is never taken)"},
    {"aTime", transitionsOf(R"("t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1u"})")},
    {"aComputedTime",
     transitionsOf(R"("t": {"target": "b", "order": 0, "event": "wake", "wakeTimeCalc": "1.0 + 2.0"})")},
};
INSTANTIATE_TEST_SUITE_P(Wakes, WakeWithoutTime, testing::ValuesIn(wakes));

class TimeWithoutWake : public testing::TestWithParam<LintCase>
{};

TEST_P(TimeWithoutWake, IsToldOfTransitions)
{
    checkLintCase(GetParam(), FindingKind::timeWithoutWake);
}

const std::vector<LintCase> times{
    {"aTimeOnAChange", transitionsOf(R"("t": {"target": "b", "order": 100, "event": "change",
         "conditions": "simulationTime() > 2.0", «"wakeTime"»: "1u"})"),
     R"('wakeTime' means nothing without the event "wake")"},
    {"aComputedTimeOnAChange", transitionsOf(R"("t": {"target": "b", "order": 100, "event": "change",
         "conditions": "simulationTime() > 2.0", «"wakeTimeCalc"»: "1.0"})"),
     R"('wakeTimeCalc' means nothing without the event "wake")"},
    {"behindOtherAlphabets",
     transitionsOf(R"("t": {"target": "b", "order": 0, "é": "日本", «"wakeTime"»: "1u"})"),
     R"('wakeTime' means nothing without the event "wake")"},
    {"aTimeWithoutEvent", transitionsOf(R"("t": {"target": "b", "order": 0, «"wakeTime"»: "1u"})"),
     R"('wakeTime' means nothing without the event "wake")"},
    {"bothTimesOnAWake", transitionsOf(R"("t": {"target": "b", "order": 0, "event": "wake",
         "wakeTime": "1u", "wakeTimeCalc": "1.0"})")},
};
INSTANTIATE_TEST_SUITE_P(Times, TimeWithoutWake, testing::ValuesIn(times));

} // namespace
