#include "lintcase.h"
#include "support/concatenated.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// "PATH: TEXT" of each error.
std::vector<std::string> errorsOf(std::string_view definition)
{
    std::vector<std::string> errors;
    for (const Finding& finding : checkDefinition(definition)) {
        if (finding.severity == FindingSeverity::error)
            errors.push_back(finding.path + ": " + finding.text);
    }
    return errors;
}

TEST(SeveralErrors, OfActionTextsAreReportedOneForEachText)
{
    const std::string definition = R"({"states": {"a": {"type": "atomic",
        "onEntry": ["x; y;", "print(1);", "z;"], "onExit": "return;",
        "transitions": {"t": {"target": "a", "order": 0, "event": "wake", "wakeTimeCalc": "q",
            "conditions": ["1 +", "true", "\"text\""], "actions": "1"}}}},
        "start": "a", "outputs": {}, "outputDelay": 1})";
    EXPECT_THAT(errorsOf(definition),
                ElementsAre(R"(states["a"].onEntry.[0]: 'x': undeclared identifier)",
                            R"(states["a"].onEntry.[2]: 'z': undeclared identifier)",
                            R"(states["a"].onExit: unexpected token 'return')",
                            R"(states["a"].transitions["t"].wakeTimeCalc: 'q': undeclared identifier)",
                            R"(states["a"].transitions["t"].conditions.[0]: syntax error: '+' was )"
                            R"(unexpected; expected 'expression')",
                            R"(states["a"].transitions["t"].conditions.[2]: )"
                            R"(invalid cast from 'string' to 'bool')",
                            R"(states["a"].transitions["t"].actions: expected ';')"));
}

TEST(SeveralErrors, BlameTheFirstTokenBeyondTheLimit)
{
    const std::string tokens(2'000'000, ';');
    const std::string definition = R"({"start": "a", "states": {"a": {"type": "atomic", "onEntry": ")" +
                                   tokens + R"( x;"}}, "outputs": {}, "outputDelay": 1})";
    const std::vector<Finding> findings = checkDefinition(definition);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings.front().text, "more than 2000000 tokens in one text");
    EXPECT_EQ(findings.front().offset, definition.find('x'));
    EXPECT_EQ(findings.front().length, 1u);
}

TEST(SeveralErrors, ShowTheStartAndTheEndOfLongNames)
{
    std::string name;
    while (name.size() < 100'000)
        name += "é€";
    std::string definition =
        R"({"start": ")" + name + R"(", "states": {")" + name + R"(": {"type": "atomic", "transitions": {)";
    for (int index = 0; index < 100; ++index) {
        definition += (index > 0 ? ", \"" : "\"") + std::to_string(index) + R"(": {"target": "x)" + name +
                      R"(y", "event": "change", "order": )" + std::to_string(index) + "}";
    }
    definition += R"(}}}, "outputs": {}, "outputDelay": 1})";
    std::size_t size = 0;
    std::size_t count = 0;
    for (const Finding& finding : checkDefinition(definition)) {
        if (finding.kind != FindingKind::unknownTarget)
            continue;
        ++count;
        size += finding.text.size() + finding.path.size();
        EXPECT_THAT(finding.text, testing::StartsWith("'xé€é€"));
        EXPECT_THAT(finding.text, testing::ContainsRegex("[é€]…[é€]")); // whole characters on both sides
        EXPECT_THAT(finding.path, testing::StartsWith("states[\"é€é€"));
        EXPECT_THAT(finding.path,
                    testing::EndsWith("\"].transitions[\"" + std::to_string(count - 1) + "\"].target"));
    }
    EXPECT_EQ(count, 100u);
    EXPECT_LT(size, 5000 * count);
}

TEST(SeveralErrors, OfTheStructureAreAllReported)
{
    const std::string definition = R"({
        "states": {
            "a": {"type": "compound", "initial": "nobody", "onEntry": 1, "onExit": [null, 2],
                  "substates": {"b": {"transitions": {"t": {}}}, "c": []}},
            "d": {"type": "parallel", "transitions": [], "substates": {"b": {"type": "atomic"}}},
            "e": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 1, "actions": {}}}},
            "f": {"type": "compound"}},
        "start": "g"})";
    EXPECT_THAT(
        errorsOf(definition),
        ElementsAre("outputs: invalid key", "outputDelay: invalid key",
                    R"(states["a"].initial: cannot find initial state: nobody)",
                    R"(states["a"].onEntry: invalid format for onEntry definition)",
                    R"(states["a"].onExit.[0]: invalid cast)", R"(states["a"].onExit.[1]: invalid cast)",
                    R"(states["a"].substates["b"].type: invalid key)",
                    R"(states["a"].substates["b"].transitions["t"].target: invalid key)",
                    R"(states["a"].substates["b"].transitions["t"].order: invalid key)",
                    R"(states["a"].substates["c"]: invalid cast)", R"(states["d"].transitions: invalid cast)",
                    R"(states["d"].substates["b"]: duplicate state identifier: b)",
                    R"(states["e"].transitions["t"]: duplicate transition identifier: t)",
                    R"(states["e"].transitions["t"].actions: invalid format for 'actions' definition)",
                    R"(states["f"].substates: invalid key)", R"(states["f"].initial: invalid key)",
                    "start: start identifier does not reference top level state"));
}

TEST(SeveralErrors, OfADeviceAreAllReported)
{
    const std::string definition = R"({"states": {"a": {"type": "atomic"}}, "start": "a",
        "inputs": {"i": {"type": "wire"}, "j": {"type": "bus", "width": 0, "dataType": "int"},
                   "k": 1},
        "outputs": {"i": {"type": "pin", "initial": 0}, "o": {"type": "bus", "initial": "0", "width": 1.0,
                    "dataType": "int64_t", "encoding": "none"}},
        "outputDelay": "soon",
        "parameters": {"p": {"type": "bool", "value": "x"}, "q": {"value": 1}},
        "variables": {"v": {"type": "int", "value": 1.5}, "w": {"type": "char", "value": 1}}})";
    EXPECT_THAT(
        errorsOf(definition),
        ElementsAre(
            R"(inputs["i"].type: input must have "type" property that is either "bus" or "pin")",
            R"(inputs["j"].width: input bus must have "width" property that is an integer greater than 0)",
            R"(inputs["j"].dataType: input bus must have "dataType" property that is either "int64" or "uint64")",
            R"(inputs["k"]: invalid cast)", R"(outputs["i"]: duplicate pin identifier: 'i')",
            R"(outputs["i"].initial: output must have "initial" property that is either "0" or "1")",
            R"(outputs["o"].initial: output must have "initial" property that is an integer)",
            R"(outputs["o"].width: output bus must have "width" property that is an integer greater than 0)",
            R"(outputs["o"].encoding: output int64 bus must have "encoding" property that is either )"
            R"("OffsetBinary" or "TwosComplement")",
            R"(outputDelay: invalid format for number conversion)",
            R"(parameters["p"].type: invalid device parameter type)",
            R"(parameters["p"].value: parameter must have "value" property that is a number or string that )"
            R"(can convert to a number)",
            R"(parameters["q"].type: parameter must have "type" property that is either "int64_t", "uint64_t" )"
            R"(or "double")",
            R"(variables["v"].value: int variable requires integer value)",
            R"(variables["w"].type: invalid variable type: 'char')"));
}

TEST(SeveralErrors, DoNotHideWarnings)
{
    const std::string definition = R"({"states": {"a": {"type": "atomic", "onEntry": "x;",
        "transitions": {"t": {"target": "b", "order": 0, "event": "change"}}}}, "start": "a"})";
    const std::vector<Finding> findings = checkDefinition(definition);
    EXPECT_EQ(textsOf(findings),
              "invalid key\ninvalid key\n'x': undeclared identifier\n'b': no such state\n");
}

TEST(SeveralErrors, DoNotFollowFromOneAnother)
{
    // The state that fails is a state all the same, and the transition that fails a transition.
    const std::string definition = R"({"states": {"a": {"type": "compound", "initial": "b", "substates": {
        "b": {"type": 1}}}}, "start": "a", "outputs": {}, "outputDelay": 1})";
    EXPECT_THAT(errorsOf(definition), ElementsAre(R"(states["a"].substates["b"].type: invalid cast)"));
}

TEST(SeveralErrors, LeaveTheNamesInATextThatDoesNotCompileAlone)
{
    const std::string sections = R"("inputs": {"d": {"type": "pin"}}, "outputs": {"q": {"type": "pin",
        "initial": "0"}, "p": {"type": "pin", "initial": "0"}})";
    const std::string definition = deviceOf(sections, R"("if (isPinHigh(\"d\") setPinHigh(\"q\");")");
    EXPECT_EQ(textsOf(checkDefinition(definition)),
              "'p': no action drives this output\nsyntax error: ')' was unexpected; expected 'expression'\n");
    const std::string unreadable = deviceOf(sections, R"("setPinHigh(\"q\") @")");
    EXPECT_EQ(textsOf(checkDefinition(unreadable)), "unknown token '@'\n");
}

TEST(FindingRulesOfAUser, SwitchWarningsOff)
{
    const std::string definition = actionsOf(R"("int x; if (1) print(1);")");
    FindingRules rules;
    rules.disable(FindingKind::constantCondition);
    const std::vector<Finding> findings = checkDefinition(definition, rules);
    EXPECT_EQ(textsOf(findings), "'x' is not used\n");
}

TEST(FindingRulesOfAUser, MakeErrorsOfWarnings)
{
    const std::string definition = actionsOf(R"("int x; if (1) print(1);")");
    FindingRules rules;
    rules.makeError(FindingKind::constantCondition);
    const std::vector<Finding> findings = checkDefinition(definition, rules);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].severity, FindingSeverity::warning);
    EXPECT_EQ(findings[1].severity, FindingSeverity::error);
}

TEST(FindingRulesOfAUser, DoNotSwitchErrorsOff)
{
    FindingRules rules;
    rules.disable(FindingKind::invalidAction);
    EXPECT_TRUE(rules.isEnabled(FindingKind::invalidAction));
}

TEST(FindingRulesOfAUser, DisableWhatIsAlsoMadeAnError)
{
    const std::string definition = actionsOf(R"("if (1) print(1);")");
    FindingRules rules;
    rules.makeError(FindingKind::constantCondition);
    rules.disable(FindingKind::constantCondition);
    EXPECT_THAT(checkDefinition(definition, rules), IsEmpty());
}

TEST(FindingKinds, HaveNamesThatFindThem)
{
    for (const FindingKindInfo& info : findingKinds()) {
        EXPECT_EQ(findingKindOf(info.name), info.kind);
        EXPECT_THAT(std::string(info.name), testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
        EXPECT_FALSE(info.summary.empty());
    }
    EXPECT_EQ(findingKindOf("no-such-kind"), std::nullopt);
    EXPECT_EQ(findingKindOf(""), std::nullopt);
}

/// A definition, and all that is said of it.
struct OneFault
{
    const char* name;
    std::string definition;
    std::string texts;
};

void PrintTo(const OneFault& row, std::ostream* output)
{
    *output << row.name;
}

class FaultOfADefinition : public testing::TestWithParam<OneFault>
{};

TEST_P(FaultOfADefinition, IsToldOnce)
{
    EXPECT_EQ(textsOf(checkDefinition(GetParam().definition)), GetParam().texts);
}

const char* const outputType = "output must have \"type\" property that is either \"bus\" or \"pin\"\n";
const char* const inputType = "input must have \"type\" property that is either \"bus\" or \"pin\"\n";
const std::string outputQ = R"("outputs": {"q": {"type": "pin", "initial": "0"}})";

/// A device with a terminal and a variable of each kind that nothing which can be read uses.
std::string deviceWithStates(std::string_view states)
{
    return concatenated(
        {R"({"inputs": {"d": {"type": "pin"}}, "variables": {"v": {"type": "int", "value": 0}}, )", outputQ,
         R"(, "outputDelay": 1, "start": "a")", states, "}"});
}

const std::vector<OneFault> faults{
    {"statesThatAreNoObject", deviceWithStates(R"(, "states": 5)"), "invalid cast\n"},
    {"missingStates", deviceWithStates(""), "invalid key\n"},
    {"entryActionsThatAreNoText", deviceWithStates(R"(, "states": {"a": {"type": "atomic", "onEntry": 5}})"),
     "invalid format for onEntry definition\n"},
    {"anEntryActionThatIsNoText",
     deviceWithStates(R"(, "states": {"a": {"type": "atomic", "onEntry": ["print(\"a\");", 5]}})"),
     "invalid cast\n"},
    {"transitionsThatAreNoObject",
     deviceWithStates(R"(, "states": {"a": {"type": "atomic", "transitions": 5}})"), "invalid cast\n"},
    {"transitionsThatMightHaveLedSomewhere",
     chartOf(R"("a": {"type": "atomic", "transitions": 5}, "b": {"type": "atomic"})"), "invalid cast\n"},
    {"aTransitionThatMightHaveLedSomewhere",
     chartOf(R"("a": {"type": "atomic", "transitions": {"t": 5}}, "b": {"type": "atomic"})"),
     "invalid cast\n"},
    {"aTransitionThatIsNoObject",
     deviceWithStates(R"(, "states": {"a": {"type": "atomic", "transitions": {"t": 5}}})"), "invalid cast\n"},
    {"aNestedStateThatIsNoObject",
     deviceWithStates(R"(, "states": {"a": {"type": "parallel", "substates": {"b": 5}}})"), "invalid cast\n"},
    {"substatesThatAreNoObject",
     deviceWithStates(R"(, "states": {"a": {"type": "parallel", "substates": 5}})"), "invalid cast\n"},
    {"anErrorThatHidesNoAction", // in a state whose name is that of a place for actions
     deviceWithStates(R"(, "states": {"a": {"type": "parallel", "substates": {"actions": {"type": "parallel",
         "substates": {"actions": {"type": "atomic"}}}}}})"),
     "'d': no action uses this input\n'v': no action uses this variable\n'q': no action drives this output\n"
     "duplicate state identifier: actions\n"},
    {"anOutputWithoutType", deviceOf(R"("outputs": {"q": {}})", R"("")"), outputType},
    {"anInputOfAnUnknownType", deviceOf(R"("inputs": {"d": {"type": "wire"}}, "outputs": {})", R"("")"),
     inputType},
    {"anInputThatIsNoObject",
     deviceOf(R"("inputs": {"d": 5}, "outputs": {})", R"("print(isPinHigh(\"d\"));")"), "invalid cast\n"},
    {"aVariableThatIsNoObject", deviceOf(R"("outputs": {}, "variables": {"v": 5})", R"("")"),
     "invalid cast\n"},
    {"inputsThatAreNoObject", deviceOf(R"("inputs": 5, "outputs": {})", R"("print(isPinHigh(\"d\"));")"),
     "invalid cast\n"},
    {"missingOutputs", deviceOf(R"("é": 1)", R"("setPinHigh(\"q\");")"), "invalid key\n"},
    {"aWidthOf0",
     deviceOf(R"("outputs": {"b": {"type": "bus", "initial": 0, "width": 0, "dataType": "uint64_t"}})",
              R"("setBusPinHigh(\"b\", 0);")"),
     "output bus must have \"width\" property that is an integer greater than 0\n"},
    {"aParameterOfATypeOfVariables",
     deviceOf(R"("outputs": {}, "parameters": {"p": {"type": "int", "value": 1}})",
              R"("print(getParameter_double(\"p\"));")"),
     "invalid device parameter type\n"},
    {"aPinThatIsInputAndOutput",
     deviceOf(R"("inputs": {"d": {"type": "pin"}}, "outputs": {"d": {"type": "pin", "initial": "0"}})",
              R"("setPinHigh(\"d\");")"),
     "duplicate pin identifier: 'd'\n"},
    {"aBusThatIsDrivenAsAPin",
     deviceOf(R"("outputs": {"bus": {"type": "bus", "initial": 0, "width": 2, "dataType": "uint64_t"}})",
              R"("setPinHigh(\"bus\");")"),
     "'bus' is an output bus; 'setPinHigh' takes an output pin\n"},
    {"aNameThatIsComputedInATextThatDoesNotCompile",
     deviceOf(R"("outputs": {"q1": {"type": "pin", "initial": "0"}})",
              R"("string s = format(\"q{}\", 1); setPinHigh(s); x;")"),
     "'x': undeclared identifier\n"},
    {"aDuplicateTransitionThatDrives", R"({)" + outputQ + R"(, "outputDelay": 1, "start": "a", "states": {
         "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "change"}}},
         "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "change",
             "actions": "setPinHigh(\"q\");"}}}}})",
     "duplicate transition identifier: t\n"},
    {"aDuplicateTransitionWithAnError",
     R"({"outputs": {}, "outputDelay": 1, "start": "a", "states": {
         "a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "change"}}},
         "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "change",
             "actions": "zz;"}}}}})",
     "duplicate transition identifier: t\n'zz': undeclared identifier\n"},
    {"aDuplicateStateWithAnError",
     R"({"outputs": {}, "outputDelay": 1, "start": "a", "states": {"a": {"type": "parallel", "substates": {
         "b": {"type": "parallel", "substates": {"b": {"type": "atomic", "onEntry": "zz;"}}}}}}})",
     "duplicate state identifier: b\n'zz': undeclared identifier\n"},
    {"theSecondOfEqualKeysInOneObject", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "a", "order": 0, "event": "change"},
         "t": {"target": "a", "order": 0, "event": "change", "actions": "zz;"}}}, "a": 5)"),
     ""},
    {"aStateWithoutType", chartOf(R"("a": {"é": 1, "initial": "b", "substates": {
         "b": {"type": "atomic", "transitions": {"t": {"target": "c", "order": 0, "event": "change"}}},
         "c": {"type": "atomic"}}})"),
     "invalid key\n"},
    {"aStateThatIsNoObject", chartOf(R"("a": {"type": "atomic", "transitions": {
         "t": {"target": "b", "order": 0, "event": "change"},
         "u": {"target": "b", "order": 1, "event": "wake", "wakeTime": "1u"}}}, "b": 5)"),
     "invalid cast\n"},
    {"aCompoundStateWithoutInitial", chartOf(R"("a": {"type": "compound", "substates": {
         "b": {"type": "atomic"}, "c": {"type": "atomic"}}})"),
     "invalid key\n"},
};
INSTANTIATE_TEST_SUITE_P(Faults, FaultOfADefinition, testing::ValuesIn(faults));

} // namespace
