// The sections of a device, from compiled form to run-time records.

#include "traceactor.h"

#include <gmock/gmock.h>

namespace {

Chart linkedSections(std::string_view sections)
{
    return linkDeviceStateChart(compiledDevice(deviceWith(sections)), deviceCodeBuilder());
}

/// A compiled device of one state, some of whose sections are given.
std::string failureOfSection(std::string_view key, std::string_view members)
{
    std::string sections;
    for (const std::string_view each :
         {"inputBuses", "inputPins", "outputBuses", "outputPins", "variables", "parameters"})
        sections += formatText(R"(, "{}": {{{}}})", each, each == key ? members : "");
    const std::string text =
        R"({"nstates": 0, "start": "a", "states": {"a": {"type": "atomic", "ntrans": 0}}, "transitions": {})" +
        sections + "}";
    return failureOf([&] { linkedText(text); });
}

TEST(DeviceLink, MakesARecordOfEachPinAndBus)
{
    const Chart chart = linkedSections(R"("inputs": {
            "i": {"type": "pin"},
            "ib": {"type": "bus", "width": 8, "dataType": "int64_t", "encoding": "OffsetBinary"},
            "iu": {"type": "bus", "width": 3, "dataType": "uint64_t"}},
        "outputs": {
            "high": {"type": "pin", "initial": "1"}, "low": {"type": "pin", "initial": "0"},
            "ob": {"type": "bus", "width": 4, "dataType": "int64_t", "encoding": "TwosComplement", "initial": -3},
            "ou": {"type": "bus", "width": 64, "dataType": "uint64_t", "initial": 3}},
        "outputDelay": "5n")");
    EXPECT_EQ(chart->inputPins.at("i").type(), 0);
    EXPECT_EQ(chart->inputBuses.size(), 2u);
    const InputBusDefinition& signedInput = chart->inputBuses.at("ib");
    EXPECT_EQ(signedInput.type(), 1);
    EXPECT_EQ(signedInput.width, 8u);
    EXPECT_EQ(signedInput.dataType, BusDataType::int64);
    EXPECT_EQ(signedInput.encoding, BusEncoding::offsetBinary);
    EXPECT_EQ(chart->inputBuses.at("iu").encoding, BusEncoding::unsignedBinary);

    EXPECT_EQ(chart->outputPins.at("high").initial, PinInitialValue::high);
    EXPECT_EQ(static_cast<int>(chart->outputPins.at("low").initial), 1);
    const OutputBusDefinition& signedOutput = chart->outputBuses.at("ob");
    EXPECT_EQ(signedOutput.initial, BusValue(std::int64_t{-3}));
    EXPECT_EQ(signedOutput.initial.index(), 0u);
    EXPECT_EQ(signedOutput.encoding, BusEncoding::twosComplement);
    const OutputBusDefinition& unsignedOutput = chart->outputBuses.at("ou");
    EXPECT_EQ(unsignedOutput.initial, BusValue(std::uint64_t{3}));
    EXPECT_EQ(unsignedOutput.initial.index(), 1u);
    EXPECT_EQ(unsignedOutput.dataType, BusDataType::uint64);
    EXPECT_EQ(unsignedOutput.encoding, BusEncoding::unsignedBinary);
    EXPECT_EQ(unsignedOutput.width, 64u);
}

TEST(DeviceLink, KeepsTheTextOfAParameter)
{
    const Chart chart = linkedSections(
        R"("parameters": {"p": {"type": "int64_t", "value": "1k"}}, "outputs": {}, "outputDelay": "5n")");
    EXPECT_EQ(chart->parameters.at("p").type, ParameterType::int64);
    EXPECT_EQ(chart->parameters.at("p").value, "1k");
    EXPECT_EQ(chart->parameters.at("OUTPUT_DELAY").type, ParameterType::real);
    EXPECT_EQ(chart->parameters.at("OUTPUT_DELAY").value, "5n");
}

TEST(DeviceLink, MakesAValueOfTheTypeOfEachVariable)
{
    const Chart chart = linkedSections(R"("variables": {
            "i": {"type": "int", "value": -1}, "d": {"type": "double", "value": 2},
            "e": {"type": "double", "value": "1k"}, "s": {"type": "string", "value": "x"},
            "b": {"type": "bool", "value": true}, "l": {"type": "int64_t", "value": -4},
            "u": {"type": "uint64_t", "value": 5}},
        "outputs": {}, "outputDelay": 1)");
    const auto& variables = chart->variables;
    EXPECT_EQ(variables.at("i"), DeviceVariableValue(std::int32_t{-1}));
    EXPECT_EQ(variables.at("d"), DeviceVariableValue(2.0));
    EXPECT_EQ(variables.at("e"), DeviceVariableValue(1000.0));
    EXPECT_EQ(variables.at("s"), DeviceVariableValue("x"));
    EXPECT_EQ(variables.at("b"), DeviceVariableValue(true));
    EXPECT_EQ(variables.at("l"), DeviceVariableValue(std::int64_t{-4}));
    EXPECT_EQ(variables.at("u"), DeviceVariableValue(std::uint64_t{5}));
    EXPECT_EQ(variables.at("u").index(), 5u);
}

struct SectionFailure
{
    const char* key;
    const char* members;
    const char* text;
};

TEST(DeviceLink, SaysWhatIsWrongWithASection)
{
    constexpr auto failures = std::to_array<SectionFailure>({
        {"outputBuses", R"("b": {"dataType": 2, "initial": 0, "encoding": 1, "width": 1})",
         "invalid bus data type"},
        {"outputBuses", R"("b": {"dataType": -1})", "invalid bus data type"},
        {"outputBuses", R"("b": {"dataType": 0, "initial": 0, "width": 1})", "invalid key"},
        {"outputBuses", R"("b": {"dataType": 1, "initial": "0", "width": 1})", "invalid cast"},
        {"outputBuses", R"("b": {"dataType": 1, "initial": 0, "width": -1})", "invalid bus width"},
        {"outputBuses", R"("b": {"dataType": 0, "initial": 0, "encoding": 0, "width": 1})",
         "invalid bus encoding"},
        {"inputBuses", R"("b": {"dataType": 2, "encoding": 3, "width": 1})", "invalid bus data type"},
        {"inputBuses", R"("b": {"dataType": 1, "encoding": 4, "width": 1})", "invalid bus encoding"},
        {"inputBuses", R"("b": {"dataType": 1, "encoding": 3, "width": 0})", "invalid bus width"},
        {"inputBuses", R"("b": {"dataType": 1, "encoding": 3})", "invalid key"},
        {"inputPins", R"("b": 1)", "invalid cast"},
        {"outputPins", R"("b": {})", "invalid key"},
        {"outputPins", R"("b": {"initial": "1"})", "invalid cast"},
        {"outputPins", R"("b": {"initial": 2})", "invalid initial value of a pin"},
        {"parameters", R"("b": {"type": 2, "value": 1})", "invalid cast"},
        {"parameters", R"("b": {"type": 3, "value": "1"})", "invalid parameter type"},
        {"parameters", R"("b": {"value": "1"})", "invalid key"},
        {"variables", R"("b": {"type": "double", "value": "1"})",
         "variable link error: invalid type for 'double'"},
        {"variables", R"("b": {"type": "double", "value": true})",
         "variable link error: invalid type for 'double'"},
        {"variables", R"("b": {"type": "float", "value": 1})", "invalid variable type: 'float'"},
        {"variables", R"("b": {"type": "int", "value": 1.0})", "invalid cast"},
        {"variables", R"("b": {"type": "string", "value": 1})", "invalid cast"},
        {"variables", R"("b": {"type": "bool"})", "invalid key"},
    });
    for (const SectionFailure& failure : failures)
        EXPECT_EQ(failureOfSection(failure.key, failure.members), failure.text) << failure.members;
}

TEST(DeviceLink, NeedsEverySection)
{
    const std::string whole =
        R"({"nstates": 0, "start": "a", "states": {"a": {"type": "atomic", "ntrans": 0}},
        "transitions": {}, "inputBuses": {}, "inputPins": {}, "outputBuses": {}, "outputPins": {},
        "variables": {}, "parameters": {}})";
    EXPECT_NO_THROW(linkedText(whole));
    for (const char* key : {"inputBuses", "inputPins", "outputBuses", "outputPins", "variables", "parameters",
                            "nstates", "start", "states", "transitions"}) {
        std::string text = whole;
        text[text.find(formatText("\"{}\"", key)) + 1] = '_';
        EXPECT_EQ(failureOf([&] { linkedText(text); }), "invalid key") << key;
    }
}

} // namespace
