#include "lintcase.h"
#include "statechart/definitions.h"

#include <algorithm>
#include <vector>

namespace {

constexpr auto error = Finding::Severity::error;
constexpr auto warning = Finding::Severity::warning;

/// A definition with the blamed bytes between « and », and what is said of them.
struct CheckCase
{
    const char* name;
    std::string marked;
    Finding::Severity severity;
    std::optional<std::uint32_t> code;
    std::string text;
    std::string path;
};

void PrintTo(const CheckCase& row, std::ostream* output)
{
    *output << row.name;
}

/// What the compiler and the language say themselves.
std::vector<Finding> compilerFindings(std::string_view definition)
{
    std::vector<Finding> findings = checkDefinition(definition);
    std::erase_if(findings, [](const Finding& finding) { return finding.kind > FindingKind::unknownEscape; });
    return findings;
}

class DefinitionCheck : public testing::TestWithParam<CheckCase>
{};

TEST_P(DefinitionCheck, BlamesTheMarkedBytes)
{
    const CheckCase& row = GetParam();
    const MarkedText definition = withoutMarks(row.marked);
    const std::vector<Finding> findings = compilerFindings(definition.text);
    const auto found = std::ranges::find(findings, row.path, &Finding::path);
    ASSERT_NE(found, findings.end());
    const Finding& finding = *found;
    EXPECT_EQ(finding.severity, row.severity);
    EXPECT_EQ(finding.code, row.code);
    EXPECT_EQ(finding.text, row.text);
    EXPECT_EQ(finding.path, row.path);
    EXPECT_EQ(finding.offset, definition.offset);
    EXPECT_EQ(finding.length, definition.length);
}

/// A device of one state `a` with the members given.
std::string withState(std::string_view members)
{
    return std::string("{\"states\": {\"a\": {\"type\": \"atomic\", ")
        .append(members)
        .append("}},\n \"start\": \"a\", \"outputs\": {}, \"outputDelay\": 1}");
}

std::string withTransition(std::string_view members)
{
    return withState(
        std::string(R"("transitions": {"t": {"target": "a", "order": 0, )").append(members).append("}}"));
}

std::string withRoot(std::string_view members)
{
    return std::string(R"({"states": {"a": {"type": "atomic"}}, "start": "a", )").append(members).append("}");
}

std::string withVariable(std::string_view members)
{
    return withRoot(std::string(R"("outputs": {}, "outputDelay": 1, "variables": {"v": {"é": 1, )")
                        .append(members)
                        .append("}}"));
}

const std::vector<CheckCase> actionTexts{
    {"anUndeclaredIdentifier", withState(R"("onEntry": "«x» = 1;")"), error, 30, "'x': undeclared identifier",
     R"(states["a"].onEntry)"},
    {"aPlaceBehindEscapes", withState(R"("onEntry": "print(\"a\\n\");\n\t«y»;")"), error, 30,
     "'y': undeclared identifier", R"(states["a"].onEntry)"},
    {"aSpanThatHoldsEscapes", withState(R"("onEntry": "if «\"a\"» 1;")"), error, 11,
     R"(syntax error: '"a"' was unexpected; expected '(')", R"(states["a"].onEntry)"},
    {"anElementOfAList", withState(R"("onExit": ["int i = 1; i;", "«z»;"])"), error, 30,
     "'z': undeclared identifier", R"(states["a"].onExit.[1])"},
    {"anActionOfATransition", withTransition(R"("actions": "«z»;")"), error, 30, "'z': undeclared identifier",
     R"(states["a"].transitions["t"].actions)"},
    {"aCondition", withTransition(R"("conditions": ["true", "«z»"])"), error, 30,
     "'z': undeclared identifier", R"(states["a"].transitions["t"].conditions.[1])"},
    {"aByteOfNoToken", withState(R"("onEntry": "int a1 = 1; «$» b")"), error, 37, "unknown token '$'",
     R"(states["a"].onEntry)"},
    {"aCharacterOfNoToken", withState("\"onEntry\": \"1; «\xc3»\xa9\""), error, 37,
     "unknown token '\xc3\xa9'", R"(states["a"].onEntry)"},
    {"aCharacterOfFourBytes", withState("\"onEntry\": \"«\xf0»\x9f\x98\x80 1;\""), error, 37,
     "unknown token '\xf0\x9f\x98\x80'", R"(states["a"].onEntry)"},
    {"aByteThatStartsNoCharacter", withState("\"onEntry\": \"«\xc3»(\""), error, 37, "unknown token '\xc3'",
     R"(states["a"].onEntry)"},
    {"aByteOfNoTokenThatIsEscaped", withState(R"("onEntry": "1; «\\»")"), error, 37, "unknown token '\\'",
     R"(states["a"].onEntry)"},
    {"anUnterminatedComment", withState(R"("onEntry": "1; /*«»")"), error, 32,
     "unexpected end of file found in comment", R"(states["a"].onEntry)"},
    {"aNewlineInAConstant", withState(R"("onEntry": "print(\"a«\n»\");")"), error, 24, "newline in constant",
     R"(states["a"].onEntry)"},
    {"aLiteralOutOfRange", withState(R"("onEntry": "int x = «99999999999»;")"), error, std::nullopt,
     "compiler failed to convert string to int", R"(states["a"].onEntry)"},
    {"anErrorAtTheEndOfTheText", withState(R"("onEntry": "if (true) {«»")"), error, 4,
     "syntax error: '' was unexpected; expected '}'", R"(states["a"].onEntry)"},
    {"aWakeTimeThatIsNoNumberOfTheLanguage",
     withTransition(R"("event": "wake", "wakeTime": "1u\" + «q» + \"")"), error, 30,
     "'q': undeclared identifier", R"(states["a"].transitions["t"].wakeTime)"},
    {"aComputedWakeTime", withTransition(R"("event": "wake", "wakeTimeCalc": "1.0 + «q»")"), error, 30,
     "'q': undeclared identifier", R"(states["a"].transitions["t"].wakeTimeCalc)"},
    {"aFindingInAWakeTime", withTransition(R"("event": "wake", "wakeTimeCalc": "1 /*«»")"), error, 32,
     "unexpected end of file found in comment", R"(states["a"].transitions["t"].wakeTimeCalc)"},
    {"anUnusedVariable", withState(R"("onEntry": "int «x»;")"), warning, 6, "'x' is not used",
     R"(states["a"].onEntry)"},
    {"anUnrecognisedEscape", withState(R"("onEntry": ["", "print(\"a«\\q»\");"])"), warning, 7,
     R"('\q': unrecognised character escape sequence)", R"(states["a"].onEntry.[1])"},
    {"anUnrecognisedEscapeBehindOtherText", withState(R"("onEntry": "print(\"aaaa«\\q»bb\\n\");")"), warning,
     7, R"('\q': unrecognised character escape sequence)", R"(states["a"].onEntry)"},
    {"anUnrecognisedEscapeInMultiByteText",
     withState("\"onEntry\": \"print(\\\"é\\\"); print(\\\"ééé«\\\\ß»\\\");\""), warning, 7,
     "'\\ß': unrecognised character escape sequence", R"(states["a"].onEntry)"},
    {"anUnrecognisedEscapeInACharacter", withState(R"("onEntry": "char c = '«\\q»'; c;")"), warning, 7,
     R"('\q': unrecognised character escape sequence)", R"(states["a"].onEntry)"},
    {"anUnrecognisedEscapeInAWakeTime", withTransition(R"("event": "wake", "wakeTime": "1n«\\q»s")"), warning,
     7, R"('\q': unrecognised character escape sequence)", R"(states["a"].transitions["t"].wakeTime)"},
};
INSTANTIATE_TEST_SUITE_P(ActionTexts, DefinitionCheck, testing::ValuesIn(actionTexts));

const std::vector<CheckCase> structures{
    {"missingStates", R"(«{»"start": "a"})", error, std::nullopt, "invalid key", "states"},
    {"aStateThatIsNoObject", R"({"states": {"a": «17»}})", error, std::nullopt, "invalid cast",
     R"(states["a"])"},
    {"aStateWhoseTypeIsNoString", R"({"states": {"a": {«"type"»: ["atomic"]}}})", error, std::nullopt,
     "invalid cast", R"(states["a"].type)"},
    {"aStateWithoutType", R"({"states": {«"a"»: {}}})", error, std::nullopt, "invalid key",
     R"(states["a"].type)"},
    {"aStartThatNamesNothing", R"({"states": {}, "start": «"b"»})", error, std::nullopt,
     "start identifier does not reference top level state", "start"},
    {"aTransitionWithoutTarget", withState(R"("transitions": {«"t"»: {"order": 1}})"), error, std::nullopt,
     "invalid key", R"(states["a"].transitions["t"].target)"},
    {"aDuplicateTransition",
     R"({"states": {"a": {"type": "", "transitions": {"t": {"target": "a", "order": 0}}},
         "b": {"type": "", "transitions": {«"t"»: {"target": "a", "order": 0}}}}})",
     error, std::nullopt, "duplicate transition identifier: t", R"(states["b"].transitions["t"])"},
    {"aDuplicateNestedState",
     R"({"states": {"a": {"type": "parallel", "substates": {"x": {"type": "parallel",
         "substates": {«"x"»: {}}}}}}})",
     error, std::nullopt, "duplicate state identifier: x", R"(states["a"].substates["x"].substates["x"])"},
    {"anInitialThatIsNoChild",
     R"({"states": {"a": {"type": "compound", "substates": {}, "initial": «"b"»}}})", error, std::nullopt,
     "cannot find initial state: b", R"(states["a"].initial)"},
    {"entryOfAWrongForm", withState(R"("onEntry": «12»)"), error, std::nullopt,
     "invalid format for onEntry definition", R"(states["a"].onEntry)"},
    {"anElementThatIsNoString", withState(R"("onEntry": ["", «null»])"), error, std::nullopt, "invalid cast",
     R"(states["a"].onEntry.[1])"},
    {"aWakeTimeThatIsNoString", withTransition(R"("event": "wake", "wakeTime": «12»)"), error, std::nullopt,
     "invalid cast", R"(states["a"].transitions["t"].wakeTime)"},
    {"missingOutputs", R"(«{»"states": {"a": {"type": ""}}, "start": "a"})", error, std::nullopt,
     "invalid key", "outputs"},
    {"aWrongWidth", withRoot(R"("inputs": {"d": {"type": "bus", "width": «8.0»}})"), error, std::nullopt,
     R"(input bus must have "width" property that is an integer greater than 0)", R"(inputs["d"].width)"},
    {"aMissingEncoding", withRoot(R"("inputs": {«"d"»: {"type": "bus", "width": 8, "dataType": "int64_t"}})"),
     error, std::nullopt,
     R"(input int64 bus must have "encoding" property that is either "OffsetBinary" or "TwosComplement")",
     R"(inputs["d"].encoding)"},
    {"aDuplicatePin", withRoot(R"("inputs": {"d": {"type": "pin"}}, "outputs": {«"d"»: {"type": "pin"}})"),
     error, std::nullopt, "duplicate pin identifier: 'd'", R"(outputs["d"])"},
    {"aWrongInitial", withRoot(R"("outputs": {"q": {"type": "pin", "initial": «"High"»}})"), error,
     std::nullopt, R"(output must have "initial" property that is either "0" or "1")",
     R"(outputs["q"].initial)"},
    {"anOutputDelayThatIsNoNumber", withRoot(R"("outputs": {}, "outputDelay": «true»)"), error, std::nullopt,
     R"(invalid value of "outputDelay")", "outputDelay"},
    {"anOutputDelayReplacedByAnotherType", withRoot(R"("outputs": {}, "outputDelay": 1,
         "parameters": {«"OUTPUT_DELAY"»: {"type": "int64_t", "value": 1}})"),
     error, std::nullopt, "OUTPUT_DELAY parameter must be of type 'double'", R"(parameters["OUTPUT_DELAY"])"},
    {"actionsOfAWrongForm", withTransition(R"("é": 1, «"actions"»: {})"), error, std::nullopt,
     "invalid format for 'actions' definition", R"(states["a"].transitions["t"].actions)"},
    {"conditionsOfAWrongForm", withTransition(R"("é": 1, "conditions": «false»)"), error, std::nullopt,
     "invalid format for 'conditions' definition", R"(states["a"].transitions["t"].conditions)"},
    {"aVariableOfDoubleThatIsNoNumber", withVariable(R"("type": "double", "value": «true»)"), error,
     std::nullopt, "double variable requires numeric value", R"(variables["v"].value)"},
    {"aVariableOfStringThatIsNoText", withVariable(R"("type": "string", "value": «1»)"), error, std::nullopt,
     "string variable requires string value", R"(variables["v"].value)"},
    {"aVariableOfBoolThatIsNoTruth", withVariable(R"("type": "bool", "value": «"true"»)"), error,
     std::nullopt, "bool variable requires boolean value", R"(variables["v"].value)"},
    {"aVariableOfInt64ThatIsNoInteger", withVariable(R"("type": "int64_t", "value": «1.0»)"), error,
     std::nullopt, "int64_t variable requires int64_t value", R"(variables["v"].value)"},
    {"aVariableOfUint64ThatIsNoInteger", withVariable(R"("type": "uint64_t", "value": «"1"»)"), error,
     std::nullopt, "uint64_t variable requires uint64_t value", R"(variables["v"].value)"},
    {"anOutputDelayOf0", withRoot(R"("outputs": {}, "outputDelay": «"0p"»)"), error, std::nullopt,
     "OUTPUT_DELAY parameter cannot be '0'", "outputDelay"},
    {"anOutputDelayReplacedByOneOf0", withRoot(R"("outputs": {}, "outputDelay": 1,
         "parameters": {«"OUTPUT_DELAY"»: {"type": "double", "value": 0}})"),
     error, std::nullopt, "OUTPUT_DELAY parameter cannot be '0'", R"(parameters["OUTPUT_DELAY"])"},
    {"aParameterThatIsNoNumber",
     withRoot(R"("outputs": {}, "outputDelay": 1, "parameters": {"p": {"type": "double", "value": «"x"»}})"),
     error, std::nullopt,
     R"(parameter must have "value" property that is a number or string that can convert to a number)",
     R"(parameters["p"].value)"},
    {"aVariableOfAnotherType",
     withRoot(R"("outputs": {}, "outputDelay": 1, "variables": {"v": {"type": «"char"», "value": 1}})"),
     error, std::nullopt, "invalid variable type: 'char'", R"(variables["v"].type)"},
    {"aDocumentThatIsAnArray", " «[»1, 2]", error, std::nullopt, "JSON document is not an object", ""},
    {"aDocumentThatIsANumber", " «12»", error, std::nullopt, "invalid type for JSON document", ""},
    {"aSyntaxError", "{\"a\": 1,\n \"b\": «x»}", error, std::nullopt,
     "invalid JSON 'expected value' at line 2 character 7", ""},
    {"anIntegerOutOfRange", "{\"é\": 1, \"outputDelay\": «2147483648»}", error, std::nullopt,
     "invalid JSON 'invalid number' at line 1 character 36", ""},
    {"aNegativeIntegerOutOfRange", "[1,\n «-2147483649»]", error, std::nullopt,
     "invalid JSON 'invalid number' at line 2 character 13", ""},
    {"aNumberWithoutDigits", "[1, -«x»]", error, std::nullopt,
     "invalid JSON 'expected number 0-9' at line 1 character 6", ""},
    {"anEmptyText", "«»", error, std::nullopt, "invalid JSON 'expected value' at line 1 character 1", ""},
    {"atextThatIsCutOff", "{\"a\": 1\n«»", error, std::nullopt,
     "invalid JSON 'expected ',' or '}'' at line 2 character 1", ""},
};
INSTANTIATE_TEST_SUITE_P(Structures, DefinitionCheck, testing::ValuesIn(structures));

TEST(CheckedDefinition, HasNoFindingsWhenThereIsNothingToSay)
{
    const std::string definition = withState(R"("onEntry": "print(\"hello\");")");
    EXPECT_TRUE(checkDefinition(definition).empty());
}

TEST(CheckedDefinition, HasNothingToSayOfEscapesThatThereAreNorOfVariablesThatAreAssigned)
{
    const std::string definition =
        withState(R"("onEntry": "print(\"\\n\\t\\\\q\\\"é\"); int x; x = 1; const int y = 2; x = y;")");
    EXPECT_EQ(textsOf(checkDefinition(definition)), "");
}

TEST(CheckedDefinition, HasNothingToSayOfTheLargestNumbers)
{
    const std::string definition = R"({"states": {"a": {"type": "atomic"}}, "start": "a", "outputs": {},
        "outputDelay": 2147483647, "parameters": {"OUTPUT_DELAY": {"type": "double", "value": 2147483648.0}}})";
    EXPECT_EQ(textsOf(checkDefinition(definition)), "");
}

TEST(CheckedDefinition, TellsOfStatesThatNestTooDeepAtTheFirstSuchState)
{
    std::string open;
    std::string close;
    for (int depth = 1; depth <= 501; ++depth) {
        open += "\"s" + std::to_string(depth) + R"(": {"type": "parallel", "substates": {)";
        close += "}}";
    }
    const std::string definition =
        "{\"states\": {" + open + close + R"(}, "start": "s1", "outputs": {}, "outputDelay": 1})";
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(textsOf(findings), "states are nested too deep\n");
    EXPECT_EQ(findings[0].offset, definition.find("\"s501\""));
    EXPECT_EQ(findings[0].length, 6u);
}

TEST(CheckedDefinition, HasLinesAndColumnsInBytesFromOne)
{
    const std::string definition = "{\"states\": {\"a\":\r\n  {\"type\": \"atomic\",\r"
                                   "   \"\xc3\xa9\": 1, \"onEntry\": \"x;\"\n}}, \"start\": \"a\", "
                                   "\"outputs\": {}, \"outputDelay\": 1}";
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].line, 3u);
    EXPECT_EQ(findings[0].column, 25u);
    EXPECT_EQ(findings[0].sourceLine, "   \"\xc3\xa9\": 1, \"onEntry\": \"x;\"");
}

TEST(CheckedDefinition, ReportsWarningsBesideTheErrorInTheOrderOfTheText)
{
    const std::string definition = withState(R"("onExit": "z;", "onEntry": ["int x;", "int y;"])");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].text, "'z': undeclared identifier");
    EXPECT_EQ(findings[1].text, "'x' is not used");
    EXPECT_EQ(findings[2].text, "'y' is not used");
}

TEST(CheckedDefinition, ReportsWarningsOfConditionsAndWakeTimes)
{
    const std::string definition =
        withTransition(R"j("event": "wake", "wakeTime": "1\\q", "conditions": "isPinHigh(\"\\w\")")j");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].path, R"(states["a"].transitions["t"].wakeTime)");
    EXPECT_EQ(findings[0].severity, warning);
    EXPECT_EQ(findings[1].path, R"(states["a"].transitions["t"].conditions)");
    EXPECT_EQ(findings[1].severity, warning);
}

TEST(CheckedDefinition, ReportsEveryFindingOfTheTokeniser)
{
    const std::string definition = withState("\"onEntry\": \"print(\\\"a\\n\\\"b\\n/*\"");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].text, "newline in constant");
    EXPECT_EQ(findings[1].text, "newline in constant");
    EXPECT_EQ(findings[2].text, "unexpected end of file found in comment");
}

TEST(CheckedDefinition, TakesTheFirstOfDuplicateKeysAsTheCompilerDoes)
{
    const std::string definition = withState(R"("onEntry": "x;", "onEntry": "y;")");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].offset, definition.find("x;"));
}

/// Many of the same, one behind the other.
std::string repeated(std::string_view text, std::size_t count)
{
    std::string result;
    for (std::size_t index = 0; index < count; ++index)
        result += text;
    return result;
}

TEST(CheckedDefinition, PlacesEachOfManyFindingsInOneText)
{
    constexpr std::size_t count = 20000;
    const std::string action = R"(print(\"a\\q\");)";
    const std::string definition = withState("\"onEntry\": \"" + repeated(action, count) + "\"");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), count);
    const std::size_t first = definition.find("\\\\q");
    for (std::size_t index = 0; index < count; ++index) {
        ASSERT_EQ(findings[index].offset, first + index * action.size());
        ASSERT_EQ(findings[index].sourceLine.data(), definition.data());
    }
}

TEST(CheckedDefinition, PlacesAFindingInEachOfManyTextsOnOneLine)
{
    constexpr std::size_t count = 10000;
    const std::string text = R"("int x;",)";
    std::string definition = withState("\"onEntry\": [" + repeated(text, count) + "\"\"]");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), count);
    const std::size_t first = definition.find("x;");
    for (std::size_t index = 0; index < count; ++index) {
        ASSERT_EQ(findings[index].offset, first + index * text.size());
        ASSERT_EQ(findings[index].line, 1u);
    }
}

TEST(CheckedDefinition, PlacesEachOfManyFindingsOnLinesOfTheirOwn)
{
    constexpr std::size_t count = 50000;
    const std::string definition = withState("\"onEntry\": [" + repeated("\"int x;\",\r\n", count) + "\"\"]");
    const std::vector<Finding> findings = compilerFindings(definition);
    ASSERT_EQ(findings.size(), count);
    for (std::size_t index = 0; index < count; ++index)
        ASSERT_EQ(findings[index].line, index + 1);
    EXPECT_EQ(findings[count - 1].column, 6u);
    EXPECT_EQ(findings[count - 1].sourceLine, "\"int x;\",");
}

TEST(CheckedDefinition, SurvivesBeingCutOffAnywhere)
{
    const std::string definition =
        withTransition(R"("event": "wake", "wakeTime": "1u", "actions": ["int x;"])");
    for (std::size_t length = 0; length < definition.size(); ++length)
        EXPECT_EQ(checkDefinition(std::string_view(definition).substr(0, length)).size(), 1u) << length;
}

} // namespace
