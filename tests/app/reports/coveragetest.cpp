#include "reports/coverage.h"
#include "reports/coveragecollector.h"

#include "testrun.h"

namespace {

constexpr auto gate = R"json(
    "states": {
        "off": {"type": "atomic", "transitions": {
            "late": {"target": "never", "order": 5, "event": "change"},
            "up": {"target": "on", "order": 1, "event": "change",
                   "conditions": ["isPositiveEdge(\"x\")", "isPinHigh(\"y\")"]}}},
        "on": {"type": "compound", "initial": "in", "substates": {
            "in": {"type": "atomic", "transitions": {
                "down": {"target": "off", "order": 0, "event": "change",
                         "conditions": "isNegativeEdge(\"x\")"}}}}},
        "never": {"type": "atomic"}},
    "start": "off", "outputDelay": "1n", "outputs": {}, "inputs": {"x": {"type": "pin"}, "y": {"type": "pin"}})json";

constexpr auto risingY = R"("events": [{"time": "1n", "pin": "y", "value": 1}])";

Coverage coverageOf(const std::vector<std::string>& stimuli)
{
    CoverageCollector collector;
    for (const std::string& stimulus : stimuli) {
        TestRun run(gate, stimulus, {&collector});
        EXPECT_EQ(run.result().error, "");
    }
    return collector.coverage();
}

Coverage withStates(std::size_t covered, std::size_t total)
{
    Coverage coverage;
    for (std::size_t state = 0; state < total; ++state)
        coverage.states.push_back({std::to_string(state), state < covered ? 1u : 0u});
    return coverage;
}

} // namespace

TEST(CoverageCollector, CountsStatesTransitionsAndOutcomes)
{
    const Coverage coverage = coverageOf({R"("events": [{"time": "1n", "pin": "x", "value": 1}])"});
    ASSERT_EQ(coverage.states.size(), 4u);
    EXPECT_EQ(coverage.states[0].path, "off");
    EXPECT_EQ(coverage.states[1].path, "on");
    EXPECT_EQ(coverage.states[2].path, "never");
    EXPECT_EQ(coverage.states[3].path, "on/in");
    EXPECT_EQ(coverage.states[0].entered, 1u);
    EXPECT_EQ(coverage.states[2].entered, 1u);

    ASSERT_EQ(coverage.transitions.size(), 3u);
    const Coverage::Transition& up = coverage.transitions[0]; // the lower order comes first
    EXPECT_EQ(up.identifier, "up");
    EXPECT_EQ(up.source, "off");
    EXPECT_EQ(up.target, "on");
    EXPECT_EQ(up.taken, 0u);
    ASSERT_EQ(up.conditions.size(), 2u);
    EXPECT_EQ(up.conditions[0].held, 1u);
    EXPECT_EQ(up.conditions[0].failed, 0u);
    EXPECT_EQ(up.conditions[1].held, 0u);
    EXPECT_EQ(up.conditions[1].failed, 1u);
    EXPECT_EQ(coverage.transitions[1].identifier, "late");
    EXPECT_EQ(coverage.transitions[1].taken, 1u);
    EXPECT_EQ(coverage.transitions[2].source, "on/in");
}

TEST(CoverageCollector, DoesNotCountAConditionBehindOneThatFailed)
{
    const Coverage coverage = coverageOf({risingY}); // no edge of x: y is not asked for
    EXPECT_EQ(coverage.transitions[0].conditions[0].failed, 1u);
    EXPECT_EQ(coverage.transitions[0].conditions[1].held, 0u);
    EXPECT_EQ(coverage.transitions[0].conditions[1].failed, 0u);
}

TEST(CoverageCollector, AddsUpSeveralRuns)
{
    const std::string change = R"("events": [{"time": "1n", "pin": "x", "value": 1}])";
    const Coverage coverage = coverageOf({change, risingY, change});
    EXPECT_EQ(coverage.states.size(), 4u);
    EXPECT_EQ(coverage.states[0].entered, 3u);
    EXPECT_EQ(coverage.states[2].entered, 3u);
    EXPECT_EQ(coverage.transitions[1].taken, 3u);
    EXPECT_EQ(coverage.transitions[0].conditions[0].held, 2u);
    EXPECT_EQ(coverage.transitions[0].conditions[0].failed, 1u);
}

TEST(Coverage, CountsTwoOutcomesForEachCondition)
{
    Coverage coverage = withStates(1, 2);
    coverage.transitions = {{"t", "a", "b", 1, {{1, 0}, {3, 2}}}, {"u", "b", "a", 0, {}}};
    EXPECT_EQ(coverage.stateCount().covered, 1u);
    EXPECT_EQ(coverage.stateCount().total, 2u);
    EXPECT_EQ(coverage.transitionCount().covered, 1u);
    EXPECT_EQ(coverage.transitionCount().total, 2u);
    EXPECT_EQ(coverage.outcomeCount().covered, 3u);
    EXPECT_EQ(coverage.outcomeCount().total, 4u);
    EXPECT_EQ(coverage.count().covered, 5u);
    EXPECT_EQ(coverage.count().total, 8u);
    EXPECT_EQ(coverageSummary(coverage),
              "states 1/2 (50.0 %), transitions 1/2 (50.0 %), outcomes 3/4 (75.0 %), "
              "all 5/8 (62.5 %)");
}

TEST(Coverage, RoundsDownSoThatAHundredMeansEverything)
{
    EXPECT_THAT(coverageSummary(withStates(1999, 2000)), testing::StartsWith("states 1999/2000 (99.9 %)"));
    EXPECT_THAT(coverageSummary(withStates(2, 3)), testing::StartsWith("states 2/3 (66.6 %)"));
    EXPECT_THAT(coverageSummary(withStates(3, 3)), testing::StartsWith("states 3/3 (100.0 %)"));
    EXPECT_THAT(coverageSummary(withStates(0, 3)), testing::StartsWith("states 0/3 (0.0 %)"));
    EXPECT_FALSE(withStates(1999, 2000).stateCount().isFull());
}

TEST(Coverage, IsFullWhereThereIsNothing)
{
    EXPECT_EQ(coverageSummary({}), "states 0/0 (100.0 %), transitions 0/0 (100.0 %), outcomes 0/0 (100.0 %), "
                                   "all 0/0 (100.0 %)");
    EXPECT_TRUE(Coverage{}.count().isFull());
    EXPECT_EQ(Coverage{}.count().percent(), 100.0);
}

TEST(Coverage, IsOneJsonObject)
{
    Coverage coverage;
    coverage.states = {{"a/b \"c\"", 2}};
    coverage.transitions = {{"t", "a", "b", 1, {{1, 0}}}};
    EXPECT_EQ(
        coverageJson(coverage, "d.json"),
        R"({"device": "d.json", "states": [{"state": "a\/b \"c\"", "entered": 2}], )"
        R"("transitions": [{"transition": "t", "source": "a", "target": "b", "taken": 1, )"
        R"("conditions": [{"true": 1, "false": 0}]}], )"
        R"("summary": {"states": {"covered": 1, "total": 1}, "transitions": {"covered": 1, "total": 1}, )"
        R"("outcomes": {"covered": 1, "total": 2}, "all": {"covered": 3, "total": 4}}})"
        "\n");
}

TEST(Coverage, CountsNoFurtherThanAJsonIntegerInJson)
{
    Coverage coverage;
    coverage.states = {{"a", 5'000'000'000}};
    EXPECT_THAT(coverageJson(coverage, "d"), testing::HasSubstr("\"entered\": 2147483647"));
}
