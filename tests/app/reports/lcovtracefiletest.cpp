#include "reports/lcovtracefile.h"
#include "reports/definitionlines.h"

namespace {

constexpr auto definition = R"({
    "states": {
        "a": {
            "type": "atomic",
            "transitions": {
                "t": {"target": "b", "order": 0},

                "u": {"target": "b", "order": 1}
            }
        },
        "b": {"type": "compound", "initial": "a",
            "substates": {
                "a": {"type": "atomic"}, "c": {
                    "type": "atomic"}
            }
        }
    },
    "start": "a", "outputs": {}, "outputDelay": "1n"
}
)";

std::string withCarriageReturns(const std::string& text)
{
    std::string result;
    for (const char character : text)
        result += character == '\n' ? "\r\n" : std::string(1, character);
    return result;
}

Coverage someCoverage()
{
    Coverage coverage;
    coverage.states = {{"a", 1}, {"b", 2}, {"b/a", 2}, {"b/c", 0}};
    coverage.transitions = {{"t", "a", "b", 2, {{2, 1}, {0, 0}}}, {"u", "a", "b", 0, {}}};
    return coverage;
}

} // namespace

TEST(DefinitionLines, AreThoseOfTheKeys)
{
    for (const std::string& text : {std::string(definition), withCarriageReturns(definition)}) {
        const DefinitionLines lines(text);
        EXPECT_THAT(lines.states,
                    testing::UnorderedElementsAre(testing::Pair("a", 3u), testing::Pair("b", 11u),
                                                  testing::Pair("b/a", 13u), testing::Pair("b/c", 13u)));
        EXPECT_THAT(lines.transitions,
                    testing::UnorderedElementsAre(testing::Pair("t", 6u), testing::Pair("u", 8u)));
    }
}

TEST(DefinitionLines, ReadWhatStandsOnOneLine)
{
    const DefinitionLines lines(
        R"({"states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a"}}}}})");
    EXPECT_EQ(lines.states.at("a"), 1u);
    EXPECT_EQ(lines.transitions.at("t"), 1u);
}

TEST(DefinitionLines, TakeTheFirstOfTwoEqualKeys)
{
    const DefinitionLines lines(
        "{\"states\": {\n\"a\": {\"type\": \"atomic\"},\n\"a\": {\"type\": \"atomic\"}}}");
    EXPECT_EQ(lines.states.at("a"), 2u);
}

TEST(DefinitionLines, HaveNothingOfSubstatesThatAreNotRead)
{
    const DefinitionLines lines("{\"states\": {\"a\": {\"type\": \"atomic\", \"substates\": 5},\n"
                                "\"b\": {\"type\": \"atomic\", \"substates\": {\n"
                                "\"c\": {\"type\": \"atomic\", \"transitions\": {\"t\": {}}}}},\n"
                                "\"d\": {\"type\": \"atomic\", \"transitions\": {\"t\": {}}}}}");
    EXPECT_EQ(lines.states.count("b/c"), 0u);
    EXPECT_EQ(lines.transitions.at("t"), 4u);
}

TEST(DefinitionLines, RefuseWhatIsNoDefinition)
{
    EXPECT_THROW(DefinitionLines("{\"states\": 5}"), std::exception);
    EXPECT_THROW(DefinitionLines("{"), std::exception);
}

TEST(LcovTracefile, HasStatesAsFunctionsConditionsAsBranchesAndLines)
{
    // Line 13 has two states: its count is that of both.
    const std::string expected = "TN:\n"
                                 "SF:folder/d.json\n"
                                 "FN:3,a\nFN:11,b\nFN:13,b/a\nFN:13,b/c\n"
                                 "FNDA:1,a\nFNDA:2,b\nFNDA:2,b/a\nFNDA:0,b/c\n"
                                 "FNF:4\nFNH:3\n"
                                 "BRDA:6,0,0,2\nBRDA:6,0,1,1\nBRDA:6,1,0,-\nBRDA:6,1,1,-\n"
                                 "BRF:4\nBRH:2\n"
                                 "DA:3,1\nDA:6,2\nDA:8,0\nDA:11,2\nDA:13,2\n"
                                 "LF:5\nLH:4\n"
                                 "end_of_record\n";
    EXPECT_EQ(lcovText(someCoverage(), "folder/d.json", definition), expected);
    EXPECT_EQ(lcovText(someCoverage(), "folder/d.json", withCarriageReturns(definition)), expected);
}

TEST(LcovTracefile, NumbersTheConditionsOfAllTransitionsOnOneLine)
{
    Coverage coverage;
    coverage.transitions = {{"t", "a", "a", 1, {{1, 0}}}, {"u", "a", "a", 0, {{0, 1}}}};
    EXPECT_THAT(lcovText(coverage, "d.json",
                         R"({"states": {"a": {"type": "atomic", "transitions": {"t": {}, "u": {}}}}})"),
                testing::HasSubstr("BRDA:1,0,0,1\nBRDA:1,0,1,0\nBRDA:1,1,0,0\nBRDA:1,1,1,1\n"));
}

TEST(LcovTracefile, KeepsAFieldOnItsLine)
{
    Coverage coverage;
    coverage.states = {{"a\nb", 1}};
    const std::string text =
        lcovText(coverage, "d\r\n.json", "{\"states\": {\n\"a\\nb\": {\"type\": \"atomic\"}}}");
    EXPECT_THAT(text, testing::StartsWith("TN:\nSF:d??.json\nFN:2,a?b\nFNDA:1,a?b\n"));
}
