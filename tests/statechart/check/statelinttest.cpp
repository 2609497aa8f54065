#include "lintcase.h"

namespace {

class UnknownStateType : public testing::TestWithParam<LintCase>
{};

TEST_P(UnknownStateType, IsToldOfStates)
{
    checkLintCase(GetParam(), FindingKind::unknownStateType);
}

const std::vector<LintCase> types{
    {"anUnknownWord", chartOf(R"("a": {"type": «"atmoic"»})"),
     R"('a': a state is "atomic", "compound" or "parallel")"},
    {"anotherCase", chartOf(R"("a": {"type": «"Atomic"»})"),
     R"('a': a state is "atomic", "compound" or "parallel")"},
    {"aNestedState",
     chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {"b": {"type": «""»}}})"),
     R"('b': a state is "atomic", "compound" or "parallel")"},
    {"behindOtherAlphabets", chartOf(R"("a": {"é": "日本", "type": «"Atomic"»})"),
     R"('a': a state is "atomic", "compound" or "parallel")"},
    {"aStateWhoseSubstatesAreNotRead", // what they would drive and lead to is not told of
     R"({"outputs": {"q": {"type": "pin", "initial": "0"}, "r1": {"type": "pin", "initial": "0"}},
         "outputDelay": 1, "start": "a", "states": {"a": {"type": «"Compound"», "initial": "b", "substates": {
         "b": {"type": "atomic", "onEntry": ["setPinHigh(\"q\");", "string s = \"r1\"; setPinLow(s);"],
               "transitions": {"t": {"target": "c", "order": 0, "event": "change"}}},
         "c": {"type": "atomic"}}}}})",
     R"('a': a state is "atomic", "compound" or "parallel")"},
    {"theThreeWords", chartOf(R"("a": {"type": "parallel", "substates": {"b": {"type": "compound",
        "initial": "c", "substates": {"c": {"type": "atomic"}}}}})")},
};
INSTANTIATE_TEST_SUITE_P(Types, UnknownStateType, testing::ValuesIn(types));

class UnreachableState : public testing::TestWithParam<LintCase>
{};

TEST_P(UnreachableState, IsToldOfStates)
{
    checkLintCase(GetParam(), FindingKind::unreachableState);
}

const std::vector<LintCase> states{
    {"aStateThatNothingNames", chartOf(R"("a": {"type": "atomic"}, «"b"»: {"type": "atomic"})"),
     "'b': nothing leads to this state"},
    {"aStateThatIsLeftOnly", chartOf(R"("a": {"type": "atomic"}, «"b"»: {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "change"}}})"),
     "'b': nothing leads to this state"},
    {"aStateThatOnlyItselfNames",
     chartOf(R"("a": {"type": "atomic"}, «"b"»: {"type": "atomic", "transitions": {
         "t": {"target": "b", "order": 0, "event": "change"}}})"),
     "'b': nothing leads to this state"},
    {"aChildThatIsNotInitial", chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {
         "b": {"type": "atomic"}, «"c"»: {"type": "atomic"}}})"),
     "'c': nothing leads to this state"},
    {"theOuterOfNestedStatesAlone",
     chartOf(R"("a": {"type": "atomic"}, «"b"»: {"type": "compound", "initial": "c", "substates": {
         "c": {"type": "atomic"}, "d": {"type": "atomic"}}})"),
     "'b': nothing leads to this state"},
    {"theInitialOfAStateThatIsEnteredInside",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0, "event": "change"}}},
         "b": {"type": "compound", "initial": "d", "substates": {
             "c": {"type": "atomic"}, «"d"»: {"type": "atomic"}}})"),
     "'d': nothing leads to this state"},
    {"aNameInMultiByteText",
     chartOf("\"a\": {\"type\": \"atomic\", \"ß\": 1}, «\"é\\n\"»: {\"type\": \"atomic\"}"),
     "'é\n': nothing leads to this state"},
    {"theInitialOfAStateThatIsLeftOnEntry",
     chartOf(R"("a": {"type": "compound", "initial": "b", "transitions": {"t": {"target": "a", "order": 0}},
         "substates": {«"b"»: {"type": "atomic"}}})"),
     "'b': nothing leads to this state"},
    {"aStateThatIsLeftOnEntryUnderConditions",
     chartOf(R"("a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "atomic"}},
         "transitions": {"t": {"target": "c", "order": 0, "conditions": "simulationTime() > 1.0"}}},
         "c": {"type": "atomic"})")},
    {"aTargetOfATransition",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "wake",
         "wakeTime": "1u"}}}, "b": {"type": "atomic"})")},
    {"anInitialChildOfATarget",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "change"}}},
         "b": {"type": "compound", "initial": "c", "substates": {"c": {"type": "atomic"}}})")},
    {"everyRegionOfAParallelState", chartOf(R"("a": {"type": "parallel", "substates": {
         "b": {"type": "atomic"}, "c": {"type": "atomic"}}})")},
    {"theTransitionOfAnAncestorThatWasNotEntered",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0, "event": "change"}}},
         "b": {"type": "compound", "initial": "c", "substates": {"c": {"type": "atomic"}}, "transitions": {
             "u": {"target": "d", "order": 0, "event": "change"}}}, "d": {"type": "atomic"})")},
};
INSTANTIATE_TEST_SUITE_P(States, UnreachableState, testing::ValuesIn(states));

TEST(UnreachableStates, AreWhatATransitionLeadsToThatIsDroppedOnEntry)
{
    const std::string definition = chartOf(R"("a": {"type": "compound", "initial": "b", "transitions": {
        "t": {"target": "c", "order": 0}}, "substates": {"b": {"type": "atomic"}}}, "c": {"type": "atomic"})");
    EXPECT_EQ(textsOf(checkDefinition(definition)),
              "'b': nothing leads to this state\n'c': nothing leads to this state\n");
}

TEST(UnreachableStates, AreWhatOnlyAShadowedTransitionLeadsTo)
{
    const std::string definition = chartOf(R"("a": {"type": "atomic", "transitions": {
        "t": {"target": "a", "order": 0, "event": "change"},
        "u": {"target": "b", "order": 1, "event": "change"}}}, "b": {"type": "atomic"})");
    EXPECT_EQ(
        textsOf(checkDefinition(definition)),
        "'u' is never taken: 't' comes first and has no conditions\n'b': nothing leads to this state\n");
}

} // namespace
