#include "lintcase.h"

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

} // namespace
