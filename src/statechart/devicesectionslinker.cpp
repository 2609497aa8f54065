#include "statechart/devicesectionslinker.h"

#include "statechart/text/format.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace {

std::uint32_t widthOf(const JsonObject& bus)
{
    const std::int32_t width = bus.at("width").asInt();
    if (width < 1)
        throw std::runtime_error("invalid bus width");
    return static_cast<std::uint32_t>(width);
}

/// The enumerator with the number under a key. @throws std::runtime_error with `words` when none has it.
template <class Enumeration, std::size_t size>
Enumeration enumeratorOf(const JsonObject& record, std::string_view key,
                         const std::array<DeviceWord<Enumeration>, size>& known, const char* words)
{
    const auto value = static_cast<Enumeration>(record.at(key).asInt());
    if (std::none_of(known.begin(), known.end(), [&](const auto& row) { return row.value == value; }))
        throw std::runtime_error(words);
    return value;
}

BusDataType dataTypeOf(const JsonObject& bus)
{
    return enumeratorOf(bus, "dataType", busDataTypeWords, "invalid bus data type");
}

BusEncoding encodingOf(const JsonObject& bus)
{
    if (bus.at("encoding").asInt() == static_cast<std::int32_t>(BusEncoding::unsignedBinary))
        return BusEncoding::unsignedBinary;
    return enumeratorOf(bus, "encoding", busEncodingWords, "invalid bus encoding");
}

InputBusDefinition inputBus(const JsonObject& bus)
{
    const BusDataType dataType = dataTypeOf(bus);
    const BusEncoding encoding = encodingOf(bus);
    return {dataType, encoding, widthOf(bus)};
}

InputPinDefinition inputPin(const JsonObject&)
{
    return {};
}

OutputBusDefinition outputBus(const JsonObject& bus)
{
    if (dataTypeOf(bus) == BusDataType::uint64) {
        const auto initial = static_cast<std::uint64_t>(bus.at("initial").asInt());
        return {initial, widthOf(bus)};
    }
    const std::int64_t initial = bus.at("initial").asInt();
    const BusEncoding encoding = encodingOf(bus);
    return {initial, encoding, widthOf(bus)};
}

OutputPinDefinition outputPin(const JsonObject& pin)
{
    return OutputPinDefinition(
        enumeratorOf(pin, "initial", pinInitialValueWords, "invalid initial value of a pin"));
}

DeviceParameter parameter(const JsonObject& compiled)
{
    const ParameterType type = enumeratorOf(compiled, "type", parameterTypeWords, "invalid parameter type");
    return {type, compiled.at("value").asString()};
}

double realOf(const JsonValue& value)
{
    if (value.isInt())
        return value.asInt();
    if (!value.isDouble())
        throw std::runtime_error("variable link error: invalid type for 'double'");
    return value.asDouble();
}

using VariableLink = DeviceVariableValue (*)(const JsonValue& value);

// One for each of deviceVariableTypes.
constexpr std::array<VariableLink, deviceVariableTypes.size()> variableLinks{
    [](const JsonValue& value) -> DeviceVariableValue { return value.asInt(); },
    [](const JsonValue& value) -> DeviceVariableValue { return realOf(value); },
    [](const JsonValue& value) -> DeviceVariableValue { return value.asString(); },
    [](const JsonValue& value) -> DeviceVariableValue { return value.asBool(); },
    [](const JsonValue& value) -> DeviceVariableValue { return std::int64_t{value.asInt()}; },
    [](const JsonValue& value) -> DeviceVariableValue { return static_cast<std::uint64_t>(value.asInt()); },
};

DeviceVariableValue variable(const JsonObject& compiled)
{
    const std::string& word = compiled.at("type").asString();
    const auto* const type = std::find(deviceVariableTypes.begin(), deviceVariableTypes.end(), word);
    if (type == deviceVariableTypes.end())
        throw std::runtime_error(formatText("invalid variable type: '{}'", word));
    return variableLinks[static_cast<std::size_t>(type - deviceVariableTypes.begin())](compiled.at("value"));
}

template <class T>
void linkSection(const JsonObject& compiled, std::string_view key, DigitalDeviceStateChart::Table<T>& table,
                 T (*linkMember)(const JsonObject& member))
{
    const JsonObject& section = compiled.at(key).asObject();
    table.reserve(section.size());
    for (const JsonMember& member : section)
        table.emplace(member.key, linkMember(member.value.asObject()));
}

} // namespace

void linkDeviceSections(const JsonObject& compiled, DigitalDeviceStateChart& chart)
{
    linkSection(compiled, "inputBuses", chart.inputBuses, inputBus);
    linkSection(compiled, "inputPins", chart.inputPins, inputPin);
    linkSection(compiled, "outputBuses", chart.outputBuses, outputBus);
    linkSection(compiled, "outputPins", chart.outputPins, outputPin);
    linkSection(compiled, "parameters", chart.parameters, parameter);
    linkSection(compiled, "variables", chart.variables, variable);
}
