#include "lintcase.h"

namespace {

/// One of each: inputs "clock" and "data", outputs "q" and "bus", parameter "limit", variable "count".
std::string withDevice(std::string_view actions)
{
    return deviceOf(R"("inputs": {"clock": {"type": "pin"},
             "data": {"type": "bus", "width": 8, "dataType": "uint64_t"}},
         "outputs": {"q": {"type": "pin", "initial": "0"},
             "bus": {"type": "bus", "initial": 0, "width": 4, "dataType": "int64_t", "encoding": "TwosComplement"}},
         "parameters": {"limit": {"type": "double", "value": "1u"}},
         "variables": {"count": {"type": "int", "value": 0}})",
                    std::string(R"(["if (isPinHigh(\"clock\")) setPinHigh(\"q\");",
                        "writeBus(\"bus\", 1); print(readBus_uint64_t(\"data\"));",
                        "print(getParameter_double(\"limit\")); setVariable(\"count\", 1);",
                        )")
                        .append(actions)
                        .append("]"));
}

class UndeclaredName : public testing::TestWithParam<LintCase>
{};

TEST_P(UndeclaredName, IsToldOfActions)
{
    checkLintCase(GetParam(), FindingKind::undeclaredName);
}

const std::vector<LintCase> undeclared{
    {"anInputPin", withDevice(R"("print(isPinLow(«\"clokc\"»));")"),
     "'clokc': undeclared pin name; did you mean 'clock'?"},
    {"anEdge", withDevice(R"("print(isNegativeEdge(«\"cock\"»));")"),
     "'cock': undeclared pin name; did you mean 'clock'?"},
    {"anOutputPin", withDevice(R"("setPinLow(«\"p\"», 1.0);")"), "'p': undeclared pin name"},
    {"aBus", withDevice(R"("print(isBusPinHigh(«\"dat\"», 0));")"),
     "'dat': undeclared bus name; did you mean 'data'?"},
    {"aBusFarFromAll", withDevice(R"("writeBus(«\"address\"», 1);")"), "'address': undeclared bus name"},
    {"aParameter", withDevice(R"("print(getParameter_double(«\"Limit\"»));")"),
     "'Limit': undeclared parameter name; did you mean 'limit'?"},
    {"aVariable", withDevice(R"("setVariable(«\"cuont\"», 1);")"),
     "'cuont': undeclared variable name; did you mean 'count'?"},
    {"aVariableOfTheNameOfAParameter", withDevice(R"("print(getVariable_double(«\"limit\"»));")"),
     "'limit': undeclared variable name"},
    {"aPlaceBehindEscapesAndOtherAlphabets",
     withDevice("\"print(\\\"é\\\\n\\t\\\"); print(\\\"日本\\\");\\nprint(isPinHigh(«\\\"clk\\\"»));\""),
     "'clk': undeclared pin name"},
    {"anEmptyName", withDevice(R"("setPinHigh(«\"\"»);")"), "'': undeclared pin name"},
    {"theOutputDelay", withDevice(R"("print(getParameter_double(\"OUTPUT_DELAY\"));")")},
    {"aNameThatIsComputed", withDevice(R"("print(isPinHigh(format(\"p{}\", 1)));")")},
    {"aTextThatIsNoName", withDevice(R"("print(\"clokc\"); print(etod(\"1u\"));")")},
};
INSTANTIATE_TEST_SUITE_P(Actions, UndeclaredName, testing::ValuesIn(undeclared));

class WrongKind : public testing::TestWithParam<LintCase>
{};

TEST_P(WrongKind, IsToldOfActions)
{
    checkLintCase(GetParam(), FindingKind::wrongKind);
}

const std::vector<LintCase> wrongKinds{
    {"aBusAsAPin", withDevice(R"("print(isPinHigh(«\"data\"»));")"),
     "'data' is an input bus; 'isPinHigh' takes a pin"},
    {"aPinAsABus", withDevice(R"("print(isBusPinLow(«\"clock\"», 1));")"),
     "'clock' is an input pin; 'isBusPinLow' takes a bus"},
    {"anInputThatIsDriven", withDevice(R"("setPinHigh(«\"clock\"»);")"),
     "'clock' is an input pin; 'setPinHigh' takes an output pin"},
    {"anInputBusThatIsDriven", withDevice(R"("writeBus(«\"data\"», 1);")"),
     "'data' is an input bus; 'writeBus' takes an output bus"},
    {"theEdgeOfAnOutput", withDevice(R"("print(isPositiveEdge(«\"q\"»));")"),
     "'q' is an output pin; 'isPositiveEdge' takes an input pin"},
    {"behindOtherAlphabets", withDevice(R"("print(\"é\\n\"); print(isPinHigh(«\"data\"»));")"),
     "'data' is an input bus; 'isPinHigh' takes a pin"},
    {"anOutputThatIsRead", withDevice(R"("print(isPinHigh(\"q\")); print(isBusPinHigh(\"bus\", 3));")")},
};
INSTANTIATE_TEST_SUITE_P(Actions, WrongKind, testing::ValuesIn(wrongKinds));

class WrongType : public testing::TestWithParam<LintCase>
{};

TEST_P(WrongType, IsToldOfActions)
{
    checkLintCase(GetParam(), FindingKind::wrongType);
}

const std::vector<LintCase> wrongTypes{
    {"aVariableThatIsRead", withDevice(R"("print(getVariable_double(«\"count\"»));")"),
     "'count' is of type 'int', not 'double'"},
    {"aVariableThatIsSet", withDevice(R"("setVariable(«\"count\"», 1.0);")"),
     "'count' is of type 'int', not 'double'"},
    {"aParameter", withDevice(R"("print(getParameter_int64_t(«\"limit\"»));")"),
     "'limit' is of type 'double', not 'int64_t'"},
    {"theOutputDelay", withDevice(R"("print(getParameter_uint64_t(«\"OUTPUT_DELAY\"»));")"),
     "'OUTPUT_DELAY' is of type 'double', not 'uint64_t'"},
    {"aBus", withDevice(R"("print(readBus_int64_t(«\"data\"»));")"),
     "'data' is of type 'uint64_t', not 'int64_t'"},
    {"aBusThatIsWritten", withDevice(R"("uint64_t v = 1; writeBus(«\"bus\"», v);")"),
     "'bus' is of type 'int64_t', not 'uint64_t'"},
    {"aBusThatIsWrittenLater", withDevice(R"("print(\"é\"); uint64_t v = 1; writeBus(«\"bus\"», v, 1.0);")"),
     "'bus' is of type 'int64_t', not 'uint64_t'"},
    {"aBusThatIsWrittenInItsType",
     withDevice(R"("int64_t v = 1; writeBus(\"bus\", v); writeBus(\"bus\", 2, 1.0);")")},
    {"theSameType", withDevice(R"("print(getVariable_int(\"count\")); print(readBus_int64_t(\"bus\"));")")},
};
INSTANTIATE_TEST_SUITE_P(Actions, WrongType, testing::ValuesIn(wrongTypes));

class IndexOutOfRange : public testing::TestWithParam<LintCase>
{};

TEST_P(IndexOutOfRange, IsToldOfActions)
{
    checkLintCase(GetParam(), FindingKind::indexOutOfRange);
}

const std::vector<LintCase> indexes{
    {"aPinBehindTheLast", withDevice(R"("print(isBusPinHigh(\"data\", «8»));")"),
     "'data' has no pin 8: it is 8 wide"},
    {"aPinThatIsDriven", withDevice(R"("setBusPinLow(\"bus\", «4», 1.0);")"),
     "'bus' has no pin 4: it is 4 wide"},
    {"aNegativeNumber", withDevice(R"("print(\"é\"); setBusPinHigh(\"bus\", «-1»);")"),
     "'bus' has no pin -1: it is 4 wide"},
    {"aNumberOfConstants", withDevice(R"("setBusPinHigh(\"bus\", «2 + 2»);")"),
     "'bus' has no pin 4: it is 4 wide"},
    {"theFirstPin", withDevice(R"("print(isBusPinLow(\"data\", 0)); setBusPinLow(\"bus\", 2 - 2);")")},
    {"theLastPin", withDevice(R"("print(isBusPinHigh(\"data\", 7)); setBusPinHigh(\"bus\", 3);")")},
    {"aComputedIndex", withDevice(R"("int i = 9; print(isBusPinHigh(\"data\", i));")")},
};
INSTANTIATE_TEST_SUITE_P(Actions, IndexOutOfRange, testing::ValuesIn(indexes));

class UndrivenOutput : public testing::TestWithParam<LintCase>
{};

TEST_P(UndrivenOutput, IsToldOfOutputs)
{
    checkLintCase(GetParam(), FindingKind::undrivenOutput);
}

const std::vector<LintCase> outputs{
    {"aPin", deviceOf(R"("outputs": {«"q"»: {"type": "pin", "initial": "0"}})", R"("print(1);")"),
     "'q': no action drives this output"},
    {"aPinThatIsOnlyRead",
     deviceOf(R"("outputs": {«"q"»: {"type": "pin", "initial": "0"}})", R"("print(isPinHigh(\"q\"));")"),
     "'q': no action drives this output"},
    {"aBus",
     deviceOf(R"("outputs": {"ß": {"type": "pin", "initial": "0"}, «"b"»: {"type": "bus", "initial": 0,
         "width": 2, "dataType": "uint64_t"}})",
              R"("setPinLow(\"ß\");")"),
     "'b': no action drives this output"},
    {"aPinOfTheBus", deviceOf(R"("outputs": {"b": {"type": "bus", "initial": 0, "width": 2,
         "dataType": "uint64_t"}})",
                              R"("setBusPinHigh(\"b\", 1);")")},
    {"aNameThatIsComputed", deviceOf(R"("outputs": {"q1": {"type": "pin", "initial": "0"}})",
                                     R"("setPinHigh(format(\"q{}\", 1));")")},
};
INSTANTIATE_TEST_SUITE_P(Outputs, UndrivenOutput, testing::ValuesIn(outputs));

class UnusedDeclaration : public testing::TestWithParam<LintCase>
{};

TEST_P(UnusedDeclaration, IsToldOfDeclarations)
{
    checkLintCase(GetParam(), FindingKind::unusedDeclaration);
}

std::string withChange(std::string_view conditions, std::string_view input = "\"d\"")
{
    return std::string(R"({"outputs": {"q": {"type": "pin", "initial": "0"}}, "outputDelay": 1, "start": "a",
        "inputs": {"e": {"type": "pin"}, "é": {"type": "pin"}, )")
        .append(input)
        .append(R"(: {"type": "pin"}}, "states": {"a": {"type": "atomic",
            "onEntry": "if (isPinHigh(\"e\") && isPinLow(\"é\")) setPinHigh(\"q\");", "transitions": {
            "t": {"target": "a", "order": 0, "event": "change", "conditions": )")
        .append(conditions)
        .append("}}}}}");
}

const std::vector<LintCase> declarations{
    {"anInputPin", deviceOf(R"("inputs": {«"d"»: {"type": "pin"}}, "outputs": {})", R"("print(\"d\");")"),
     "'d': no action uses this input"},
    {"anInputBus",
     deviceOf(R"("inputs": {«"b"»: {"type": "bus", "width": 2, "dataType": "uint64_t"}},
         "outputs": {})",
              R"("print(1);")"),
     "'b': no action uses this input"},
    {"aVariable",
     deviceOf(R"("outputs": {}, "variables": {«"n"»: {"type": "int", "value": 1}})", R"("print(1);")"),
     "'n': no action uses this variable"},
    {"aParameter",
     deviceOf(R"("outputs": {}, "parameters": {«"p"»: {"type": "int64_t", "value": 1}})", R"("print(1);")"),
     "'p': no action uses this parameter"},
    {"anInputBesideTheEdgeOfAnother",
     withChange(R"j("isPositiveEdge(\"e\") && isPinHigh(\"q\")")j", "«\"d\"»"),
     "'d': no action uses this input"},
    {"aVariableThatIsOnlySet", deviceOf(R"("outputs": {}, "variables": {"n": {"type": "int", "value": 1}})",
                                        R"("setVariable(\"n\", 2);")")},
    {"aNameThatIsComputed", deviceOf(R"("outputs": {}, "variables": {"n1": {"type": "int", "value": 1}})",
                                     R"("print(getVariable_int(format(\"n{}\", 1)));")")},
    {"anOutputDelayOfItsOwn",
     deviceOf(R"("outputs": {}, "parameters": {"OUTPUT_DELAY": {"type": "double", "value": 1}})",
              R"("print(1);")")},
    {"anInputWhoseChangesCount", withChange("[]")},
    {"anInputWhoseChangesCountUnderAConditionOfNoInput", withChange(R"("simulationTime() > 1.0")")},
    {"anInputWhoseChangesCountWhileAnOutputIsHigh", withChange(R"j("isPinHigh(\"q\")")j")},
    {"anInputWhoseChangesCountWhileAnotherIsHigh", withChange(R"j("isPinLow(\"e\")")j")},
    {"anInputWhoseChangesCountBesideAnEdge",
     withChange(R"j("isPositiveEdge(\"e\") || simulationTime() > 1.0")j")},
    {"anInputThatAWakeTimeLooksAt",
     R"({"inputs": {"b": {"type": "bus", "width": 2, "dataType": "int64_t", "encoding": "OffsetBinary"}},
         "outputs": {}, "outputDelay": 1, "start": "a", "states": {"a": {"type": "atomic", "transitions": {
             "t": {"target": "a", "order": 0, "event": "wake",
                   "wakeTimeCalc": "readBus_int64_t(\"b\") * 1.0"}}}}})"},
};
INSTANTIATE_TEST_SUITE_P(Declarations, UnusedDeclaration, testing::ValuesIn(declarations));

} // namespace
