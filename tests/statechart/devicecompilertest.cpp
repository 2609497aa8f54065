#include "statechart/ddstatechartcompiler.h"

#include "actionlanguage/compileresult.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/definitions.h"
#include "statechart/deviceenumerations.h"
#include "statechart/deviceparameters.h"

#include <ostream>
#include <vector>

namespace {

JsonValue compiled(std::string_view definition)
{
    const JsonValue value = jsonOf(definition);
    return recorded("Definition", definition,
                    [&] { return compileDeviceStateChart(value.asObject(), deviceCodeBuilder()); });
}

struct SectionCase
{
    const char* name;
    std::string section; // a member of the root
    std::string outcome; // members of the compiled root, or the words of the failure
};

void PrintTo(const SectionCase& row, std::ostream* output)
{
    *output << row.name;
}

std::string withDefaults(std::string section)
{
    if (section.find("\"outputs\"") == std::string::npos)
        section += ", \"outputs\": {}";
    if (section.find("\"outputDelay\"") == std::string::npos)
        section += ", \"outputDelay\": \"1n\"";
    return deviceWith(section);
}

class CompiledSections : public testing::TestWithParam<SectionCase>
{};

TEST_P(CompiledSections, HaveTheFormOf)
{
    const JsonValue device = compiled(withDefaults(GetParam().section));
    const JsonValue expected = jsonOf("{" + GetParam().outcome + "}");
    for (const JsonMember& member : expected.asObject())
        EXPECT_EQ(toString(device.member(member.key)), toString(member.value));
}

const std::vector<SectionCase> sections{
    {"inputs",
     R"("inputs": {"p": {"type": "pin"},
         "o": {"type": "bus", "width": 8, "dataType": "int64_t", "encoding": "OffsetBinary"},
         "t": {"type": "bus", "width": 1, "dataType": "int64_t", "encoding": "TwosComplement"},
         "u": {"type": "bus", "width": 64, "dataType": "uint64_t"}})",
     R"("inputPins": {"p": {"type": "pin"}},
        "inputBuses": {"o": {"type": "bus", "width": 8, "dataType": 0, "encoding": 1},
            "t": {"type": "bus", "width": 1, "dataType": 0, "encoding": 2},
            "u": {"type": "bus", "width": 64, "dataType": 1, "encoding": 3}})"},
    {"anUnsignedBusWhateverItsEncoding",
     R"("inputs": {"u": {"type": "bus", "width": 2, "dataType": "uint64_t", "encoding": "bogus"}})",
     R"("inputBuses": {"u": {"type": "bus", "width": 2, "dataType": 1, "encoding": 3}})"},
    {"outputs",
     R"("outputs": {"h": {"type": "pin", "initial": "1"}, "l": {"type": "pin", "initial": "0"},
         "s": {"type": "bus", "initial": -5, "width": 8, "dataType": "int64_t", "encoding": "TwosComplement"},
         "u": {"type": "bus", "initial": 7, "width": 4, "dataType": "uint64_t"}})",
     R"("outputPins": {"h": {"type": "pin", "initial": 0}, "l": {"type": "pin", "initial": 1}},
        "outputBuses": {
            "s": {"type": "bus", "initial": -5, "width": 8, "dataType": 0, "encoding": 2},
            "u": {"type": "bus", "initial": 7, "width": 4, "dataType": 1, "encoding": 3}})"},
    {"noTerminalsAtAll", R"("outputs": {})",
     R"("inputBuses": {}, "inputPins": {}, "outputBuses": {}, "outputPins": {}, "variables": {})"},
    {"parameters",
     R"("parameters": {"i": {"type": "int64_t", "value": -3}, "u": {"type": "uint64_t", "value": "1k"},
         "d": {"type": "double", "value": 0.000000001}, "e": {"type": "double", "value": 100000.0}})",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "1n"}, "i": {"type": 0, "value": "-3"},
         "u": {"type": 1, "value": "1k"}, "d": {"type": 2, "value": "1e-09"},
         "e": {"type": 2, "value": "1e+05"}})"},
    {"variables",
     R"("variables": {"i": {"type": "int", "value": 1}, "d": {"type": "double", "value": 1.5},
         "w": {"type": "double", "value": 2}, "k": {"type": "double", "value": "1k"},
         "s": {"type": "string", "value": "x"}, "b": {"type": "bool", "value": true},
         "l": {"type": "int64_t", "value": -1}, "u": {"type": "uint64_t", "value": 1}})",
     R"("variables": {"i": {"type": "int", "value": 1}, "d": {"type": "double", "value": 1.5},
         "w": {"type": "double", "value": 2}, "k": {"type": "double", "value": 1000.0},
         "s": {"type": "string", "value": "x"}, "b": {"type": "bool", "value": true},
         "l": {"type": "int64_t", "value": -1}, "u": {"type": "uint64_t", "value": 1}})"},
    {"numbersWhoseScaleMakesThemInfinite",
     R"("outputDelay": "1e300t", "parameters": {"p": {"type": "double", "value": "1e300t"}})",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "1e300t"}, "p": {"type": 2, "value": "1e300t"}})"},
    {"anOutputDelayGivenAsText", R"("outputDelay": "10n")",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "10n"}})"},
    {"anOutputDelayGivenAsAnInteger", R"("outputDelay": 3)",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "3"}})"},
    {"anOutputDelayGivenAsADouble", R"("outputDelay": 0.000000001)",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "1e-09"}})"},
    {"anOutputDelayThatAParameterReplaces",
     R"("outputDelay": 0, "parameters": {"OUTPUT_DELAY": {"type": "double", "value": "2n"}})",
     R"("parameters": {"OUTPUT_DELAY": {"type": 2, "value": "2n"}})"},
    {"aParameterAndAVariableAndAPinOfOneName",
     R"("inputs": {"x": {"type": "pin"}}, "parameters": {"x": {"type": "int64_t", "value": 1}},
        "variables": {"x": {"type": "int", "value": 1}})",
     R"("inputPins": {"x": {"type": "pin"}}, "variables": {"x": {"type": "int", "value": 1}})"},
};
INSTANTIATE_TEST_SUITE_P(Rows, CompiledSections, testing::ValuesIn(sections));

class RefusedSections : public testing::TestWithParam<SectionCase>
{};

TEST_P(RefusedSections, AreRefusedFor)
{
    EXPECT_EQ(failureOf([] { compiled(withDefaults(GetParam().section)); }), GetParam().outcome);
}

constexpr const char* inputType = R"(input must have "type" property that is either "bus" or "pin")";
constexpr const char* inputWidth =
    R"(input bus must have "width" property that is an integer greater than 0)";
constexpr const char* inputDataType =
    R"(input bus must have "dataType" property that is either "int64" or "uint64")";
constexpr const char* inputEncoding =
    R"(input int64 bus must have "encoding" property that is either "OffsetBinary" or "TwosComplement")";
constexpr const char* outputType = R"(output must have "type" property that is either "bus" or "pin")";
constexpr const char* outputBusInitial = R"(output must have "initial" property that is an integer)";
constexpr const char* outputPinInitial = R"(output must have "initial" property that is either "0" or "1")";
constexpr const char* outputWidth =
    R"(output bus must have "width" property that is an integer greater than 0)";
constexpr const char* outputDataType =
    R"(output bus must have "dataType" property that is either "int64_t" or "uint64_t")";
constexpr const char* outputEncoding =
    R"(output int64 bus must have "encoding" property that is either "OffsetBinary" or "TwosComplement")";
constexpr const char* parameterType =
    R"(parameter must have "type" property that is either "int64_t", "uint64_t" or "double")";
constexpr const char* parameterValue =
    R"(parameter must have "value" property that is a number or string that can convert to a number)";

std::vector<SectionCase> refusedSections()
{
    const auto input = [](std::string_view members) {
        return std::string(R"("inputs": {"x": {)").append(members).append("}}");
    };
    const auto output = [](std::string_view members) {
        return std::string(R"("outputs": {"x": {)").append(members).append("}}");
    };
    const auto parameter = [](std::string_view members) {
        return std::string(R"("parameters": {"x": {)").append(members).append("}}");
    };
    const auto variable = [](std::string_view members) {
        return std::string(R"("variables": {"x": {)").append(members).append("}}");
    };
    return {
        {"anInputThatIsNoObject", R"("inputs": {"x": 1})", "invalid cast"},
        {"inputsThatAreNoObject", R"("inputs": [])", "invalid cast"},
        {"anInputWithoutType", input(""), inputType},
        {"anInputTypeThatIsNoString", input(R"("type": 1)"), inputType},
        {"anInputOfAnotherType", input(R"("type": "Pin")"), inputType},
        {"anInputBusWithoutWidth", input(R"("type": "bus")"), inputWidth},
        {"anInputBusOfWidth0", input(R"("type": "bus", "width": 0)"), inputWidth},
        {"anInputBusOfNegativeWidth", input(R"("type": "bus", "width": -1)"), inputWidth},
        {"anInputBusWhoseWidthIsADouble", input(R"("type": "bus", "width": 8.0)"), inputWidth},
        {"anInputBusWhoseWidthIsText", input(R"("type": "bus", "width": "8")"), inputWidth},
        {"anInputBusWithoutDataType", input(R"("type": "bus", "width": 8)"), inputDataType},
        {"anInputBusOfAnotherDataType", input(R"("type": "bus", "width": 8, "dataType": "int64")"),
         inputDataType},
        {"anInputBusWhoseDataTypeIsNoString", input(R"("type": "bus", "width": 8, "dataType": 0)"),
         inputDataType},
        {"anInputBusWithoutEncoding", input(R"("type": "bus", "width": 8, "dataType": "int64_t")"),
         inputEncoding},
        {"anInputBusOfAnotherEncoding",
         input(R"("type": "bus", "width": 8, "dataType": "int64_t", "encoding": "bogus")"), inputEncoding},
        {"anInputBusWhoseEncodingIsNoString",
         input(R"("type": "bus", "width": 8, "dataType": "int64_t", "encoding": 1)"), inputEncoding},
        {"outputsThatAreNoObject", R"("outputs": 1)", "invalid cast"},
        {"anOutputWithoutType", output(""), outputType},
        {"anOutputOfAnotherType", output(R"("type": "wire")"), outputType},
        {"anOutputBusWithoutInitial", output(R"("type": "bus")"), outputBusInitial},
        {"anOutputBusWhoseInitialIsADouble", output(R"("type": "bus", "initial": 1.0)"), outputBusInitial},
        {"anOutputBusWhoseInitialIsText", output(R"("type": "bus", "initial": "1")"), outputBusInitial},
        {"anOutputPinWithoutInitial", output(R"("type": "pin")"), outputPinInitial},
        {"anOutputPinWhoseInitialIsANumber", output(R"("type": "pin", "initial": 1)"), outputPinInitial},
        {"anOutputPinOfAnotherInitial", output(R"("type": "pin", "initial": "High")"), outputPinInitial},
        {"anOutputBusWithoutWidth", output(R"("type": "bus", "initial": 0)"), outputWidth},
        {"anOutputBusOfWidth0", output(R"("type": "bus", "initial": 0, "width": 0)"), outputWidth},
        {"anOutputBusWithoutDataType", output(R"("type": "bus", "initial": 0, "width": 1)"), outputDataType},
        {"anOutputBusOfAnotherDataType",
         output(R"("type": "bus", "initial": 0, "width": 1, "dataType": "int")"), outputDataType},
        {"anOutputBusWithoutEncoding",
         output(R"("type": "bus", "initial": 0, "width": 1, "dataType": "int64_t")"), outputEncoding},
        {"anOutputBusOfAnotherEncoding",
         output(R"("type": "bus", "initial": 0, "width": 1, "dataType": "int64_t", "encoding": "x")"),
         outputEncoding},
        {"anInputPinAndAnOutputPinOfOneName",
         R"("inputs": {"x": {"type": "pin"}}, "outputs": {"x": {"type": "pin", "initial": "0"}})",
         "duplicate pin identifier: 'x'"},
        {"anInputPinAndAnOutputBusOfOneName",
         R"("inputs": {"x": {"type": "pin"}},
            "outputs": {"x": {"type": "bus", "initial": 0, "width": 1, "dataType": "uint64_t"}})",
         "duplicate pin identifier: 'x'"},
        {"aParameterWithoutType", parameter(""), parameterType},
        {"aParameterTypeThatIsNoString", parameter(R"("type": 2)"), parameterType},
        {"aParameterOfAnotherType", parameter(R"("type": "int")"), "invalid device parameter type"},
        {"aParameterWithoutValue", parameter(R"("type": "double")"), parameterValue},
        {"aParameterWhoseValueIsABoolean", parameter(R"("type": "double", "value": true)"), parameterValue},
        {"aParameterWhoseTextIsNoNumber", parameter(R"("type": "double", "value": "x")"), parameterValue},
        {"aParameterThatIsInfinite", parameter(R"("type": "double", "value": "inf")"), parameterValue},
        {"aVariableWithoutType", variable(R"("value": 1)"), "invalid key"},
        {"aVariableTypeThatIsNoString", variable(R"("type": 1, "value": 1)"), "invalid cast"},
        {"aVariableOfAnotherType", variable(R"("type": "char", "value": 1)"),
         "invalid variable type: 'char'"},
        {"anIntVariable", variable(R"("type": "int", "value": 1.0)"), "int variable requires integer value"},
        {"anIntVariableWithoutValue", variable(R"("type": "int")"), "int variable requires integer value"},
        {"aDoubleVariable", variable(R"("type": "double", "value": true)"),
         "double variable requires numeric value"},
        {"aDoubleVariableWhoseTextIsNoNumber", variable(R"("type": "double", "value": "x")"),
         "invalid format for number conversion"},
        {"aDoubleVariableThatIsNoNumber", variable(R"("type": "double", "value": "nan")"),
         "invalid format for number conversion"},
        {"aDoubleVariableWhoseTextIsTooLarge", variable(R"("type": "double", "value": "1e300t")"),
         "invalid format for number conversion"},
        {"aStringVariable", variable(R"("type": "string", "value": 1)"),
         "string variable requires string value"},
        {"aBoolVariable", variable(R"("type": "bool", "value": 1)"), "bool variable requires boolean value"},
        {"anInt64Variable", variable(R"("type": "int64_t", "value": "1")"),
         "int64_t variable requires int64_t value"},
        {"aUint64Variable", variable(R"("type": "uint64_t", "value": 1.5)"),
         "uint64_t variable requires uint64_t value"},
        {"anOutputDelayThatIsABoolean", R"("outputDelay": true)", R"(invalid value of "outputDelay")"},
        {"anOutputDelayOf0", R"("outputDelay": 0)", "OUTPUT_DELAY parameter cannot be '0'"},
        {"anOutputDelayOf0AsADouble", R"("outputDelay": 0.0)", "OUTPUT_DELAY parameter cannot be '0'"},
        {"anOutputDelayOf0AsText", R"("outputDelay": "0p")", "OUTPUT_DELAY parameter cannot be '0'"},
        {"anOutputDelayThatIsNoNumber", R"("outputDelay": "fast")", "invalid format for number conversion"},
        {"anOutputDelayThatIsInfinite", R"("outputDelay": "inf")", "invalid format for number conversion"},
        {"anOutputDelayReplacedByOneOfAnotherType",
         R"("parameters": {"OUTPUT_DELAY": {"type": "int64_t", "value": 1}})",
         "OUTPUT_DELAY parameter must be of type 'double'"},
        {"anOutputDelayReplacedByOneOf0", R"("parameters": {"OUTPUT_DELAY": {"type": "double", "value": 0}})",
         "OUTPUT_DELAY parameter cannot be '0'"},
    };
}
INSTANTIATE_TEST_SUITE_P(Rows, RefusedSections, testing::ValuesIn(refusedSections()));

TEST(DeviceCompiler, NeedsOutputsAndAnOutputDelay)
{
    EXPECT_EQ(failureOf([] { compiled(deviceWith(R"("outputDelay": 1)")); }), "invalid key");
    EXPECT_EQ(failureOf([] { compiled(deviceWith(R"("outputs": {})")); }), "invalid key");
}

TEST(DeviceCompiler, RefusesAnOutputDelayOfANumberThatIsNeitherIntegerNorDouble)
{
    JsonValue definition = jsonOf(deviceWith(R"("outputs": {})"));
    definition.asObject().insert("outputDelay", JsonNumber::ofKind(static_cast<JsonNumber::Kind>(2)));
    EXPECT_EQ(failureOf([&] { compileDeviceStateChart(definition.asObject(), deviceCodeBuilder()); }),
              "unrecognised number type for 'outputDelay'");
}

TEST(DeviceCompiler, ReportsTheChartBeforeTheDevice)
{
    EXPECT_EQ(failureOf([] { compiled(R"({"states": {}, "start": "a"})"); }),
              "start identifier does not reference top level state");
}

TEST(DeviceCompiler, GivesAWholeDevice)
{
    EXPECT_EQ(toString(compiled(deviceWith(R"("outputs": {}, "outputDelay": "1n")"))),
              R"({"states": {"s": {"type": "atomic", "ntrans": 0}}, "start": "s", "transitions": {}, )"
              R"("nstates": 0, "inputBuses": {}, "inputPins": {}, "outputBuses": {}, "outputPins": {}, )"
              R"("variables": {}, "parameters": {"OUTPUT_DELAY": {"type": 2, "value": "1n"}}})");
}

TEST(DeviceCompiler, CompilesTheSameTwice)
{
    const std::string definition = deviceWith(R"("outputs": {}, "outputDelay": "1n")");
    EXPECT_EQ(compiled(definition), compiled(definition));
}

JsonValue compiledTransition(std::string_view members)
{
    return compiled(deviceWithTransition(members)).member("transitions").member("t");
}

TEST(WakeTime, CompilesToACallOfEtod)
{
    EXPECT_EQ(toString(compiledTransition(R"("event": "wake", "wakeTime": "1u")").member("wakeTime")),
              R"({"rule": "call", "func": "etod", "argTypes": ["string"], "args": ["1u"]})");
}

TEST(WakeTime, IsTheSameAsAnExpressionThatReadsTheText)
{
    EXPECT_EQ(compiledTransition(R"("event": "wake", "wakeTime": "1u")"),
              compiledTransition(R"("event": "wake", "wakeTimeCalc": "etod(\"1u\");")"));
}

TEST(WakeTime, IsComputedByAnExpression)
{
    const JsonValue transition =
        compiledTransition(R"j("event": "wake", "wakeTimeCalc": "2 * getParameter_double(\"T\")")j");
    EXPECT_EQ(transition.member("wakeTime").member("op").asString(), "*");
    EXPECT_FALSE(transition.has("wakeTimeCalc"));
}

TEST(WakeTime, GoesBeforeAnExpression)
{
    EXPECT_EQ(compiledTransition(R"("event": "wake", "wakeTime": "1u", "wakeTimeCalc": "$")"),
              compiledTransition(R"("event": "wake", "wakeTime": "1u")"));
}

TEST(WakeTime, IsIgnoredWithAnotherEventOrNone)
{
    EXPECT_FALSE(compiledTransition(R"("event": "change", "wakeTime": 1)").has("wakeTime"));
    EXPECT_FALSE(compiledTransition(R"("event": "Wake", "wakeTimeCalc": 1)").has("wakeTime"));
    EXPECT_FALSE(compiledTransition(R"("wakeTime": "1u")").has("wakeTime"));
}

TEST(WakeTime, MayBeMissing)
{
    EXPECT_EQ(toString(compiledTransition(R"("event": "wake")")),
              R"({"src": "s", "tgt": "s", "order": 0, "event": "wake", "local": false})");
}

TEST(WakeTime, IsPutBetweenTheQuotesAsItStands)
{
    EXPECT_EQ(compiledTransition(R"("event": "wake", "wakeTime": "1\") + etod(\"2")"),
              compiledTransition(R"j("event": "wake", "wakeTimeCalc": "etod(\"1\") + etod(\"2\")")j"));
}

TEST(WakeTime, NeedsAString)
{
    EXPECT_EQ(failureOf([] { compiledTransition(R"("event": "wake", "wakeTime": 1)"); }), "invalid cast");
    EXPECT_EQ(failureOf([] { compiledTransition(R"("event": "wake", "wakeTimeCalc": 1)"); }), "invalid cast");
}

TEST(WakeTime, WithAByteOfNoTokenFailsWithAnAllocationFailureAndNoPath)
{
    try {
        compiledTransition(R"("event": "wake", "wakeTimeCalc": "1 + $")");
        FAIL() << "it compiled";
    } catch (const TokeniserAllocationFailure& failure) {
        EXPECT_STREQ(failure.what(), "bad allocation");
        EXPECT_EQ(failure.position(), 4u);
    }
}

TEST(WakeTime, FailsWithTheValueAccessorsErrorAndNoPath)
{
    try {
        compiledTransition(R"("event": "wake", "wakeTimeCalc": "1 /*")");
        FAIL() << "it compiled";
    } catch (const CompileFindingsException& failure) {
        EXPECT_STREQ(failure.what(), "bad variant access");
        EXPECT_EQ(failure.findings().size(), 1u);
    }
}

TEST(WakeTime, FailsWithTheLanguagesErrorAndNoPath)
{
    EXPECT_THAT([] { compiledTransition(R"("event": "wake", "wakeTimeCalc": "x")"); },
                testing::ThrowsMessage<CompilationException>("compilation error"));
}

TEST(DeviceEnumerations, HaveTheNumbersOfTheCompiledForm)
{
    EXPECT_EQ(static_cast<int>(BusDataType::int64), 0);
    EXPECT_EQ(static_cast<int>(BusDataType::uint64), 1);
    EXPECT_EQ(static_cast<int>(BusEncoding::offsetBinary), 1);
    EXPECT_EQ(static_cast<int>(BusEncoding::twosComplement), 2);
    EXPECT_EQ(static_cast<int>(BusEncoding::unsignedBinary), 3);
    EXPECT_EQ(static_cast<int>(ParameterType::int64), 0);
    EXPECT_EQ(static_cast<int>(ParameterType::uint64), 1);
    EXPECT_EQ(static_cast<int>(ParameterType::real), 2);
    EXPECT_EQ(static_cast<int>(PinInitialValue::high), 0);
    EXPECT_EQ(static_cast<int>(PinInitialValue::low), 1);
}

} // namespace
