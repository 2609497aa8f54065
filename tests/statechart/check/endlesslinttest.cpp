#include "actionlanguage/analysis/constantfolding.h"
#include "lintcase.h"
#include "statechart/check/endlesschains.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"
#include "support/allocations/allocationcounter.h"
#include "support/concatenated.h"

#include <sstream>
#include <utility>

namespace {

class EndlessTransitions : public testing::TestWithParam<LintCase>
{};

TEST_P(EndlessTransitions, AreToldOfCharts)
{
    checkLintCase(GetParam(), FindingKind::endlessTransitions);
}

/// A device with input pins "x" and "y", an input bus "n" of four lines, a parameter "p" and an output "q".
std::string deviceOfPins(std::string_view states)
{
    return std::string(R"({"inputs": {"x": {"type": "pin"}, "y": {"type": "pin"},
         "n": {"type": "bus", "width": 4, "dataType": "int64_t", "encoding": "TwosComplement"}},
         "outputs": {"q": {"type": "pin", "initial": "0"}}, "outputDelay": 1,
         "parameters": {"p": {"type": "double", "value": 1}}, "start": "all", "states": {)")
        .append(states)
        .append(R"(, "all": {"type": "atomic", "onEntry": "if (isPinHigh(\"x\") && isPinHigh(\"y\")
             && getParameter_double(\"p\") > readBus_int64_t(\"n\")) setPinHigh(\"q\");", "transitions": {"go": {"target": "a", "order": 0, "event": "change"}}}}})");
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
    {"aWayOutThatNeedNotBeOpen", chartOf(R"("a": {"type": "atomic", "transitions": {
         "out": {"target": "b", "order": 0, "conditions": "simulationTime() > 1.0"},
         «"t"»: {"target": "a", "order": 1}}}, "b": {"type": "atomic"})"),
     forEver},
    {"aRoundUnderConditionsThatCanHoldTogether",
     chartOf(
         R"("a": {"type": "atomic", "é": "日本", "transitions": {«"t"»: {"target": "b", "order": 0, "conditions":
         "simulationTime() > 1.0"}}}, "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0,
         "conditions": "simulationTime() > 2.0"}}})"),
     forEver},
    {"aRoundUnderTheSameConditionsInAnotherSequence",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "b", "order": 0, "conditions":
         ["simulationTime() > 1.0", "simulationTime() < 2.0"]}}},
         "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0, "conditions":
         ["simulationTime() < 2.0", "simulationTime() > 1.0"]}}})"),
     forEver},
    {"aConditionOnAVariableThatNothingSets",
     R"({"states": {"a": {"type": "atomic", "transitions": {«"t"»: {"target": "a", "order": 0,
         "conditions": "getVariable_int(\"n\") == 0"}}}},
         "start": "a", "outputs": {}, "outputDelay": 1, "variables": {"n": {"type": "int", "value": 0}}})",
     forEver},
    {"aRoundUnderALevelAndAnEdge", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "b", "order": 0, "conditions": "isPositiveEdge(\"x\") && !isPinHigh(\"y\")"}}},
         "b": {"type": "atomic", "transitions": {
         "u": {"target": "a", "order": 0, "conditions": ["isPinHigh(\"x\")", "isPinLow(\"y\")"]}}})j"),
     forEver},
    {"aRoundUnderTheNumberOfABus", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "a", "order": 0, "conditions": "readBus_int64_t(\"n\") < -6"}}})j"),
     forEver},
    {"aRoundUnderAPinOfABus", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "a", "order": 0, "conditions": ["isBusPinHigh(\"n\", 1)", "isBusPinLow(\"n\", 2)"]}}})j"),
     forEver},
    {"aRoundUnderAPinOfABusWhoseIndexIsComputed", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "a", "order": 0, "conditions": ["isBusPinHigh(\"n\", 1 + 1)", "isBusPinHigh(\"n\", 2)"]}}})j"),
     forEver},
    {"aRoundUnderOnePinOfABusBothWays", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "conditions": ["isBusPinHigh(\"n\", 1 + 1)", "isBusPinLow(\"n\", 2)"]}}})j")},
    {"aRoundUnderAParameter", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         «"t"»: {"target": "a", "order": 0, "conditions": "simulationTime() > getParameter_double(\"p\")"}}})j"),
     forEver},
    {"aRoundThatAnotherRegionDoesNotEnd",
     chartOf(R"("a": {"type": "atomic", "transitions": {«"t"»: {"target": "p", "order": 0}}},
         "p": {"type": "parallel", "substates": {
             "x": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}},
             "y": {"type": "compound", "initial": "y1", "substates": {
                 "y1": {"type": "atomic", "transitions": {"v": {"target": "y2", "order": 0}}},
                 "y2": {"type": "atomic"}}}}})"),
     forEver},
    {"aRoundThatManyStatesLeadInto",
     chartOf(R"("a": {"type": "atomic", "transitions": {"s": {"target": "p", "order": 0}}},
         "b": {"type": "atomic", "transitions": {«"t"»: {"target": "p", "order": 0}}},
         "p": {"type": "parallel", "substates": {
             "x": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}},
             "y": {"type": "atomic", "transitions": {"v": {"target": "b", "order": 0}}}}})"),
     "'t' leads back to 'b' through transitions without event, for ever"},
    {"aRegionThatIsLeftBeforeItIsItsTurn", // what waits is taken from the last to the first
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": {"target": "p", "order": 0}}},
         "p": {"type": "parallel", "substates": {
             "x": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}},
             "y": {"type": "atomic", "transitions": {"v": {"target": "z", "order": 0}}}}},
         "z": {"type": "atomic"})")},
    {"aConditionOnAVariableThatNothingSetsToThat",
     R"({"states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0,
         "conditions": "getVariable_int(\"n\") == 1"}}}},
         "start": "a", "outputs": {}, "outputDelay": 1, "variables": {"n": {"type": "int", "value": 0}}})"},
    {"twoEdgesAtOnce", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "conditions": "isPositiveEdge(\"x\") && isNegativeEdge(\"y\")"}}})j")},
    {"aRisingPinThatIsLow", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "conditions": "isPositiveEdge(\"x\") && isPinLow(\"x\")"}}})j")},
    {"aNumberThatTheBusCannotHold", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "conditions": "readBus_int64_t(\"n\") > 7"}}})j")},
    {"aPinOfABusThatIsReadAsAWholeToo",
     deviceOfPins(R"j("a": {"type": "atomic", "transitions": {"t": {"target": "a",
         "order": 0, "conditions": "isBusPinHigh(\"n\", 1) && readBus_int64_t(\"n\") == 0"}}})j")},
    {"anOutputThatMayBeDrivenMeanwhile", deviceOfPins(R"j("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "conditions": "isPinHigh(\"q\")", "actions": "setPinLow(\"q\", 0.0);"}}})j")},
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

TEST(EndlessRounds, AreToldOfOnceForEachRoundOfThoseThatMeet)
{
    const std::string definition =
        deviceOfPins(R"j("a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0}}},
            "c": {"type": "atomic", "transitions": {"u": {"target": "b", "order": 0}}},
            "b": {"type": "atomic", "transitions": {
                "v": {"target": "a", "order": 0, "conditions": "isPinHigh(\"x\")"},
                "w": {"target": "c", "order": 1}}})j");
    EXPECT_EQ(textsOf(checkDefinition(definition)),
              "'t' leads back to 'a' through transitions without event, for ever\n"
              "'u' leads back to 'c' through transitions without event, for ever\n");
}

/// The steps of the search for endless rounds in a chart.
std::size_t stepsIn(const std::string& text)
{
    std::istringstream input(text);
    const JsonDocument document = readDocument(input);
    const JsonObject& definition = asObject(document);
    DDStateChartCompiler compiler(DDCodeBuilderFactory::createCodeBuilder(), OnFailure::goOn);
    compiler.compile(definition);
    const CompileRecord& record = std::as_const(compiler).record();
    const std::vector<CheckedText> texts = checkedTextsOf(record);
    const ConstantFolding folding;
    const ChartModel chart(definition, texts, folding);
    EndlessChains search({definition, texts, record.failures(), chart, folding});
    search.find();
    return search.steps();
}

std::string stateWithTransition(const std::string& name, const std::string& members)
{
    return concatenated(
        {"\"", name, R"(": {"type": "atomic", "transitions": {"t)", name, R"(": {)", members, "}}}"});
}

using StateWriter = std::string (*)(const std::string& name, const std::string& next);

/// The name of a state of many: a number, but for the first.
std::string nameOf(int i)
{
    return i == 0 ? std::string("a") : std::to_string(i);
}

/// Many states, and one that ends the list; `close` is what the last of them has for its next one.
std::string chartOfMany(int count, StateWriter state, const std::string& close = "end")
{
    std::string states;
    for (int i = 0; i < count; ++i)
        states.append(state(nameOf(i), i + 1 == count ? close : nameOf(i + 1))).append(",");
    return chartOf(states.append(R"("end": {"type": "atomic"})"));
}

struct ManyStates
{
    const char* name;
    std::string (*chart)(int count);
};

void PrintTo(const ManyStates& row, std::ostream* output)
{
    *output << row.name;
}

std::string chainWithoutRound(int count)
{
    return chartOfMany(count, [](const std::string& name, const std::string& next) {
        return stateWithTransition(name, concatenated({R"("order": 0, "target": ")", next, "\""}));
    });
}

std::string roundsOfTwo(int count)
{
    return chartOfMany(count, [](const std::string& name, const std::string&) {
        const std::string other = concatenated({"x", name});
        return concatenated(
            {stateWithTransition(name, concatenated({R"("order": 0, "target": ")", other, "\""})), ",",
             stateWithTransition(other, concatenated({R"("order": 0, "target": ")", name, "\""}))});
    });
}

std::string allIntoOneParallelState(int count)
{
    std::string chart = chartOfMany(count, [](const std::string& name, const std::string&) {
        return stateWithTransition(name, R"("order": 0, "target": "p")");
    });
    std::string parallel = R"("p": {"type": "parallel", "substates": {)";
    for (int i = 0; i < count; ++i)
        parallel.append(
            concatenated({i == 0 ? "\"r" : ",\"r", std::to_string(i), R"(": {"type": "atomic"})"}));
    return chart.insert(chart.find("\"a\""), parallel.append("}},"));
}

std::string regionsThatAllEnterTheirStateAgain(int count)
{
    std::string states = R"("a": {"type": "parallel", "substates": {)";
    for (int i = 0; i < count; ++i) {
        states.append(i == 0 ? "" : ",");
        states.append(stateWithTransition(std::to_string(i), R"("order": 0, "target": "a")"));
    }
    return chartOf(states.append("}}"));
}

std::string oneRoundOfManyConditions(int count)
{
    const StateWriter state = [](const std::string& name, const std::string& next) {
        return stateWithTransition(
            name, concatenated({R"("order": 0, "conditions": "simulationTime() > )", name == "a" ? "0" : name,
                                R"(.5", "target": ")", next, "\""}));
    };
    return chartOfMany(count, state, "a");
}

std::string oneRoundOfManyConditionsOnVariables(int count)
{
    const StateWriter state = [](const std::string& name, const std::string& next) {
        return stateWithTransition(
            name,
            concatenated({R"("order": 0, "conditions": "getVariable_int(\"v\") > )", name == "a" ? "0" : name,
                          R"(", "actions": "setVariable(\"v\", 1);", "target": ")", next, "\""}));
    };
    return chartOfMany(count, state, "a");
}

const char* const longPinName = "aPinWhoseNameNeedsMemoryOfItsOwn";

std::string withPins(std::string chart, int count)
{
    std::string pins;
    for (int i = 0; i < count; ++i)
        pins.append(concatenated({i == 0 ? "" : ",", "\"", longPinName, nameOf(i), R"(": {"type": "pin"})"}));
    return chart.insert(1, concatenated({R"("inputs": {)", pins, "},"}));
}

std::string oneStateUnderManyEdges(int count)
{
    std::string transitions;
    for (int i = 0; i < count; ++i) {
        transitions.append(concatenated(
            {i == 0 ? "" : ",", "\"t", std::to_string(i), R"(": {"target": "a", "order": )",
             std::to_string(i), R"(, "conditions": "isEdgeEvent(\")", longPinName, nameOf(i), R"x(\")"})x"}));
    }
    const std::string state =
        concatenated({R"("a": {"type": "atomic", "transitions": {)", transitions, "}}"});
    return withPins(chartOf(state), count);
}

std::string oneRoundUnderManyEdges(int count)
{
    const StateWriter state = [](const std::string& name, const std::string& next) {
        return stateWithTransition(name,
                                   concatenated({R"("order": 0, "conditions": "isEdgeEvent(\")", longPinName,
                                                 name, R"x(\")", "target": ")x", next, "\""}));
    };
    return withPins(chartOfMany(count, state, "a"), count);
}

const std::vector<ManyStates> manyStates{
    {"aChainWithoutRound", chainWithoutRound},
    {"roundsOfTwo", roundsOfTwo},
    {"allIntoOneParallelState", allIntoOneParallelState},
    {"regionsThatAllEnterTheirStateAgain", regionsThatAllEnterTheirStateAgain},
    {"oneRoundOfManyConditions", oneRoundOfManyConditions},
    {"oneRoundOfManyConditionsOnVariables", oneRoundOfManyConditionsOnVariables},
    {"oneStateUnderManyEdges", oneStateUnderManyEdges},
    {"oneRoundUnderManyEdges", oneRoundUnderManyEdges},
};

class SearchOfEndlessChains : public testing::TestWithParam<ManyStates>
{};

TEST_P(SearchOfEndlessChains, TakesStepsInProportionToTheChart)
{
    const std::size_t half = stepsIn(GetParam().chart(1000));
    const std::size_t whole = stepsIn(GetParam().chart(2000));
    constexpr std::size_t stock = 100'000 + 2'000; // is there but once
    EXPECT_LE(whole, stock + 30u * 2000);
    EXPECT_LE(whole, stock + 2 * half + half / 5);
}

INSTANTIATE_TEST_SUITE_P(Charts, SearchOfEndlessChains, testing::ValuesIn(manyStates));

TEST(EndlessChains, UnderEdgesOfManyPinsAreSearchedForWithoutAskingForAllPinsOfEach)
{
    for (const auto chart : {oneStateUnderManyEdges, oneRoundUnderManyEdges}) {
        const auto allocationsFor = [&](int count) {
            const std::string text = chart(count);
            const std::size_t before = allocationCount();
            stepsIn(text);
            return allocationCount() - before;
        };
        const std::size_t half = allocationsFor(1000);
        EXPECT_LE(allocationsFor(2000), 2 * half + half / 2);
    }
}

TEST(EndlessChains, AreSearchedForInAFewStepsForEachStateOfUnconditionalCharts)
{
    EXPECT_LE(stepsIn(chainWithoutRound(2000)), 2u * 2001);
    EXPECT_LE(stepsIn(allIntoOneParallelState(2000)), 2u * 4002);
    EXPECT_LE(stepsIn(roundsOfTwo(2000)), 12u * 6001);
}

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
