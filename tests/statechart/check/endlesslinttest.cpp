#include "lintcase.h"
#include "support/concatenated.h"

namespace {

class EndlessTransitions : public testing::TestWithParam<LintCase>
{};

TEST_P(EndlessTransitions, AreToldOfCharts)
{
    checkLintCase(GetParam(), FindingKind::endlessTransitions);
}

const char* const forEver = "'t' leads back to 'a' through transitions without event, for ever";

const std::vector<LintCase> chains{
    {"aStateThatEntersItself",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "a", "order": 0}}})"), forEver},
    {"aRoundOfThree", chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "b", "order": 0}}},
         "b": {"type": "atomic", "transitions": {"u": {"target": "c", "order": 0}}},
         "c": {"type": "atomic", "transitions": {"v": {"target": "a", "order": 0}}})"),
     forEver},
    {"aConditionThatStandsStill",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "a", "order": 0, "conditions":
         ["simulationTime() >= 0.0"]}}})"),
     forEver},
    {"aRoundUnderOneConditionThatStandsStill",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "b", "order": 0, "conditions":
         "simulationTime() > 1.0"}}}, "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0,
         "conditions": ["simulationTime() > 1.0"]}}})"),
     forEver},
    {"throughTheInitialOfACompoundState",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "b", "order": 0}}},
         "b": {"type": "compound", "initial": "c", "substates": {
             "c": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}}}})"),
     forEver},
    {"throughARegionOfAParallelState",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "p", "order": 0}}},
         "p": {"type": "parallel", "substates": {"x": {"type": "atomic"},
             "y": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}}}})"),
     forEver},
    {"aChainThatEnds", chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0}}},
         "b": {"type": "atomic", "transitions": {"u": {"target": "c", "order": 0}}}, "c": {"type": "atomic"})")},
    {"aRoundThatAnEventBreaks",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0}}},
         "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0, "event": "change"}}})")},
    {"aConditionOnAVariable",
     R"({"states": {"a": {"type": "atomic", "onEntry": "setVariable(\"n\", getVariable_int(\"n\") + 1);",
         "transitions": {"t": {"target": "a", "order": 0, "conditions": "getVariable_int(\"n\") < 8"}}}},
         "start": "a", "outputs": {}, "outputDelay": 1, "variables": {"n": {"type": "int", "value": 0}}})"},
    {"anEarlierWayOutThatIsAlwaysOpen", chartOf(R"("a": {"type": "atomic", "transitions": {
         "out": {"target": "b", "order": 0, "conditions": "simulationTime() >= 0.0"},
         "t": {"target": "a", "order": 1}}}, "b": {"type": "atomic"})")},
    {"aRoundUnderTwoConditions",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "conditions":
         "simulationTime() > 1.0"}}}, "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0,
         "conditions": "simulationTime() < 1.0"}}})")},
    {"aCompoundStateThatEntersItself", // it has no active substate then, and the transition is dropped
     chartOf(R"("a": {"type": "compound", "initial": "b", "transitions": {"t": {"target": "a", "order": 0,
             "conditions": "simulationTime() > 1.0"}},
         "substates": {"b": {"type": "atomic"}}})")},
};
INSTANTIATE_TEST_SUITE_P(Chains, EndlessTransitions, testing::ValuesIn(chains));

TEST(EndlessChains, OfThousandsOfTransitionsAreFoundInOneGo)
{
    constexpr int count = 8000;
    std::string states;
    const auto nameOf = [](int i) { return i % count == 0 ? std::string("a") : std::to_string(i); };
    for (int i = 0; i < count; ++i) {
        states +=
            concatenated({i == 0 ? "\"" : ",\"", nameOf(i), R"(": {"type": "atomic", "transitions": {"t)",
                          std::to_string(i), R"(": {"target": ")", nameOf(i + 1), R"(", "order": 0}}})"});
    }
    const std::string definition = chartOf(states);
    const std::vector<Finding> findings = checkDefinition(definition);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].text, "'t0' leads back to 'a' through transitions without event, for ever");
}

} // namespace
