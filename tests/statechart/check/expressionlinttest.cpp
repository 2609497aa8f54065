#include "lintcase.h"

namespace {

class ConstantCondition : public testing::TestWithParam<LintCase>
{};

TEST_P(ConstantCondition, IsToldOfConditions)
{
    checkLintCase(GetParam(), FindingKind::constantCondition);
}

std::string conditionOf(std::string_view condition)
{
    return transitionsOf(
        std::string(R"("t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1u", "conditions": )")
            .append(condition)
            .append("}"));
}

const char* const alwaysTrue = "this condition is always true";
const char* const alwaysFalse = "this condition is always false";

const std::vector<LintCase> conditions{
    {"aLiteral", conditionOf(R"("«true»")"), alwaysTrue},
    {"aNumber", conditionOf(R"("«0»")"), alwaysFalse},
    {"anElementOfAList", conditionOf(R"j(["simulationTime() > 1.0", "(«1 + 1 == 3»)"])j"), alwaysFalse},
    {"aSideThatDecides", conditionOf(R"("«simulationTime() > 1.0 && 2 < 1»")"), alwaysFalse},
    {"aSideThatDecidesAnOr", conditionOf(R"("«simulationTime() > 1.0 || true»")"), alwaysTrue},
    {"aNegation", conditionOf(R"("«!(simulationTime() > 1.0 && false)»")"), alwaysTrue},
    {"aFunctionOfConstants", conditionOf(R"("«sqrt(4) == 2.0»")"), alwaysTrue},
    {"aProductWithZero", actionsOf(R"("int x = 1; if («x * 0») print(x);")"), alwaysFalse},
    {"aFunctionOfTextsOfNumbers", actionsOf(R"("if («etod(\"1\") > 0.0») print(1);")"), alwaysTrue},
    {"anIf", actionsOf(R"("if («1.5») print(\"é\");")"), alwaysTrue},
    {"behindOtherAlphabetsOnItsLine", actionsOf(R"("print(\"é日😀\\n\"); if («1 > 2») print(1);")"),
     alwaysFalse},
    {"aWhile", actionsOf(R"("print(\"\\n\"); while («1 > 2») print(1);")"), alwaysFalse},
    {"aDo", actionsOf(R"("do print(1); while («false»);")"), alwaysFalse},
    {"aFor", actionsOf(R"("for (int i = 0; «true»; ++i) print(i);")"), alwaysTrue},
    {"aForOnSeveralLines",
     actionsOf("[\"int i = 0;\", \"int k = 0;\\nfor (k = 1; «2»; ++k)\\n  print(k);\"]"), alwaysTrue},
    {"aTextOfNoNumberThatNothingKnows", actionsOf(R"("string s = \"x\"; if (etod(s) > 0.0) print(1);")")},
    {"aVariable", actionsOf(R"("int x = 1; if (x == 1) print(x);")")},
    {"oneConstantSideThatDoesNotDecide", conditionOf(R"("simulationTime() > 1.0 && true")")},
    {"aFunctionOfTheDevice", conditionOf(R"j("simulationTime() == simulationTime()")j")},
    {"aDivisionThatMayFault", actionsOf(R"("int x = 0; x = 1; if (8 / x == 1) print(x);")")},
};
INSTANTIATE_TEST_SUITE_P(Conditions, ConstantCondition, testing::ValuesIn(conditions));

class DivisionByZero : public testing::TestWithParam<LintCase>
{};

TEST_P(DivisionByZero, IsToldOfActions)
{
    checkLintCase(GetParam(), FindingKind::divisionByZero);
}

const std::vector<LintCase> divisions{
    {"aLiteral", actionsOf(R"("print(1 / «0»);")"), "'/': the divisor is always zero"},
    {"aRemainder", actionsOf(R"("int x = 8; print(x % («3 - 3»));")"), "'%': the divisor is always zero"},
    {"anAssignment", actionsOf(R"("int x = 8; x /= «0»; print(x);")"), "'/=': the divisor is always zero"},
    {"aRemainderThatIsAssigned", actionsOf(R"("int64_t x = 8; x %= «0»; print(x);")"),
     "'%=': the divisor is always zero"},
    {"aProductWithZero", actionsOf(R"("int x = 8; print(x / («x * 0»));")"),
     "'/': the divisor is always zero"},
    {"insideACondition", actionsOf(R"("int x = 1; if (x / «0» == 1 && x > 2) print(\"\\n\");")"),
     "'/': the divisor is always zero"},
    {"aConstantOfTheText", actionsOf(R"("const int d = 0; print(1/«d»);")"),
     "'/': the divisor is always zero"},
    {"aVariableThatIsZeroAndStaysSo",
     actionsOf(R"("print(\"é\"); int64_t d = 3 - 3; int64_t x = 8; print(x % «d»);")"),
     "'%': the divisor is always zero"},
    {"aConstantOfAnother", actionsOf(R"("const int a = 0, b = a * 7; print(1 / «b»);")"),
     "'/': the divisor is always zero"},
    {"aConstantThatIsNotZero", actionsOf(R"("const int d = 1; print(1 / d);")")},
    {"aVariableThatIsCounted", actionsOf(R"("int d = 0; ++d; print(1 / d);")")},
    {"aVariableThatIsAddedTo", actionsOf(R"("int d = 0; d += 2; print(1 / d);")")},
    {"anotherVariableOfTheName", actionsOf(R"("int d = 0; { int d = 1; print(1 / d); } print(d);")")},
    {"aDivisorThatMayBeZero", actionsOf(R"("int x = 0; if (simulationTime() > 1.0) x = 2; print(1 / x);")")},
    {"aDivisionOfDoubles", actionsOf(R"("print(1.0 / 0.0); print(1.0 / 0);")")},
    {"anotherDivisor", actionsOf(R"("print(1 / 2 % 3); int x = 7; x /= 1; print(x);")")},
};
INSTANTIATE_TEST_SUITE_P(Divisions, DivisionByZero, testing::ValuesIn(divisions));

class InvalidNumber : public testing::TestWithParam<LintCase>
{};

TEST_P(InvalidNumber, IsToldOfTexts)
{
    checkLintCase(GetParam(), FindingKind::invalidNumber);
}

const std::vector<LintCase> numbers{
    {"aWakeTime", transitionsOf(R"("t": {"target": "b", "order": 0, "event": "wake", "wakeTime": "«soon»"})"),
     "'soon': invalid format for number conversion"},
    {"aTextOfAnAction", actionsOf(R"("print(etod(«\"1 ns\"»));")"),
     "'1 ns': invalid format for number conversion"},
    {"behindOtherAlphabets", actionsOf(R"("print(\"é\\n\"); print(etod(«\"soon\"»));")"),
     "'soon': invalid format for number conversion"},
    {"aNumberWithASuffix", actionsOf(R"("print(etod(\"1ns\"));")")},
    {"aTextThatIsComputed", actionsOf(R"("print(etod(format(\"x{}\", 1)));")")},
};
INSTANTIATE_TEST_SUITE_P(Texts, InvalidNumber, testing::ValuesIn(numbers));

/// A device with these sections whose one state uses the bus "b", the parameter "p" and the variable "v".
std::string numberOf(const std::string& sections)
{
    const auto use = [&](const char* name, const char* action) {
        return sections.find(name) == std::string::npos ? "" : action;
    };
    return "{" + sections + R"(, "start": "a", "states": {"a": {"type": "atomic", "onEntry": ")" +
           use("\"b\":", R"(writeBus(\"b\", 1);)") + use("\"p\":", R"(print(getParameter_double(\"p\"));)") +
           use("\"v\":", R"(print(getVariable_double(\"v\"));)") + "\"}}}";
}

class SplitExponent : public testing::TestWithParam<LintCase>
{};

TEST_P(SplitExponent, IsToldOfNumbers)
{
    checkLintCase(GetParam(), FindingKind::splitExponent);
}

const std::vector<LintCase> exponents{
    {"aNegativeExponent", actionsOf(R"("print(2.0 * «1e-9»);")"),
     "'1e-9' is read as '1e - 9': an exponent has no sign"},
    {"aPositiveExponent", actionsOf(R"("print(«1.5E+3»);")"),
     "'1.5E+3' is read as '1.5E + 3': an exponent has no sign"},
    {"behindOtherAlphabets", actionsOf(R"("print(\"é\"); print(«1e-9»);")"),
     "'1e-9' is read as '1e - 9': an exponent has no sign"},
    {"anOutputDelay", numberOf(R"("outputs": {}, "outputDelay": «1e-9»)"),
     "'1e-9' is read as 1: a number without a point is an integer and has no exponent"},
    {"aWidth", numberOf(R"("outputDelay": 1, "outputs": {"b": {"type": "bus", "initial": 0, "é": "日本",
         "dataType": "uint64_t", "width": «1e1»}})"),
     "'1e1' is read as 1: a number without a point is an integer and has no exponent"},
    {"anInitialValue", numberOf(R"("outputDelay": 1, "outputs": {"b": {"type": "bus", "width": 8,
         "dataType": "uint64_t", "é": "日本", "initial": «2E+2»}})"),
     "'2E+2' is read as 2: a number without a point is an integer and has no exponent"},
    {"aParameter", numberOf(R"("outputDelay": 1, "outputs": {}, "parameters": {"p": {"type": "double",
         "é": "日本", "value": «-3e5»}})"),
     "'-3e5' is read as -3: a number without a point is an integer and has no exponent"},
    {"aVariable", numberOf(R"("outputDelay": 1, "outputs": {}, "variables": {"v": {"type": "double",
         "é": "日本", "value": «5e-1»}})"),
     "'5e-1' is read as 5: a number without a point is an integer and has no exponent"},
    {"anOrder", transitionsOf(R"("t": {"target": "b", "order": «1e2», "event": "wake", "wakeTime": "1u"})"),
     "'1e2' is read as 1: a number without a point is an integer and has no exponent"},
    {"anExponentThatChangesNothing", numberOf(R"("outputs": {}, "outputDelay": 1e0, "parameters": {
         "p": {"type": "double", "value": 0e9}})")},
    {"anExponentBehindAPoint", numberOf(R"("outputs": {}, "outputDelay": 1.0e-9, "parameters": {
         "p": {"type": "double", "value": "1e-9"}})")},
    {"anExponentThatNobodyReads", numberOf(R"("outputs": {}, "outputDelay": 1, "comment": 1e9)")},
    {"anExponentWithoutSign", actionsOf(R"("print(1e9);")")},
    {"aDifferenceThatIsMeant", actionsOf(R"("print(1e - 9); print(1e1-9);")")},
};
INSTANTIATE_TEST_SUITE_P(Numbers, SplitExponent, testing::ValuesIn(exponents));

} // namespace
