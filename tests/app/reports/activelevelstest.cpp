#include "reports/activelevels.h"

#include "testrun.h"

namespace {

constexpr auto nested = R"json(
    "states": {
        "c": {"type": "compound", "initial": "i",
            "substates": {
                "i": {"type": "atomic", "transitions": {
                    "in": {"target": "k", "order": 0, "event": "change", "conditions": "isPositiveEdge(\"x\")"}}},
                "j": {"type": "atomic"},
                "k": {"type": "atomic"}},
            "transitions": {
                "own": {"target": "j", "order": 0, "event": "change", "conditions": "isPositiveEdge(\"y\")"}}},
        "p": {"type": "parallel", "substates": {
            "q": {"type": "compound", "initial": "m", "substates": {"m": {"type": "atomic"}}},
            "n": {"type": "atomic"}}}},
    "start": "c", "outputDelay": "1n", "outputs": {}, "inputs": {"x": {"type": "pin"}, "y": {"type": "pin"}})json";

std::vector<std::string> activeAfter(const std::string& device, const std::string& stimulus)
{
    TestRun run(device, stimulus, {});
    EXPECT_EQ(run.result().error, "");
    return ActiveLevels(run.device().chart()).active(run.device().activeStates());
}

} // namespace

TEST(ActiveLevels, AreTheTopLevelAndTheInsidesOfCompoundStates)
{
    TestRun run(nested, R"("until": 0)", {});
    const ActiveLevels levels(run.device().chart());
    ASSERT_EQ(levels.all().size(), 3u);
    EXPECT_EQ(nameOf(levels.all()[0]), "chart");
    EXPECT_EQ(nameOf(levels.all()[1]), "c");
    EXPECT_EQ(nameOf(levels.all()[2]), "q");
    EXPECT_TRUE(statesAround(levels.all()[0]).empty());
    EXPECT_TRUE(statesAround(levels.all()[1]).empty());
    ASSERT_EQ(statesAround(levels.all()[2]).size(), 1u);
    EXPECT_EQ(statesAround(levels.all()[2])[0]->identifier, "p");
}

TEST(ActiveLevels, SayNothingWhereNothingIsActive)
{
    EXPECT_THAT(activeAfter(nested, R"("until": 0)"), testing::ElementsAre("c", "i", ""));
    EXPECT_THAT(activeAfter(nested, R"("events": [{"time": "1n", "pin": "x", "value": 1}])"),
                testing::ElementsAre("c", "k", ""));
}

TEST(ActiveLevels, JoinTheStatesThatAreActiveOnOneLevel)
{
    // The transition of the compound state into itself leaves what was active.
    EXPECT_THAT(activeAfter(nested, R"("events": [{"time": "1n", "pin": "y", "value": 1}])"),
                testing::ElementsAre("c", "i+j", ""));
}

TEST(ActiveLevels, ShowNothingOfACompoundStateThatItsOwnTransitionLeavesEmpty)
{
    EXPECT_THAT(
        activeAfter(R"("states": {"a": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0}}},
                                          "c": {"type": "compound", "initial": "i",
                                                "substates": {"i": {"type": "atomic"}, "j": {"type": "atomic"}},
                                                "transitions": {"u": {"target": "j", "order": 0}}}},
                               "start": "a", "outputDelay": "1n", "outputs": {})",
                    R"("until": 0)"),
        testing::ElementsAre("", ""));
}
