#include "statechart/devicesectionslinker.h"

#include "statechart/text/format.h"

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

InputBusDefinition inputBus(const JsonObject& bus)
{
    const auto dataType = static_cast<BusDataType>(bus.at("dataType").asInt());
    const auto encoding = static_cast<BusEncoding>(bus.at("encoding").asInt());
    return {dataType, encoding, widthOf(bus)};
}

InputPinDefinition inputPin(const JsonObject&)
{
    return {};
}

OutputBusDefinition outputBus(const JsonObject& bus)
{
    switch (static_cast<BusDataType>(bus.at("dataType").asInt())) {
    case BusDataType::int64: {
        const std::int64_t initial = bus.at("initial").asInt();
        const auto encoding = static_cast<BusEncoding>(bus.at("encoding").asInt());
        return {initial, encoding, widthOf(bus)};
    }
    case BusDataType::uint64: {
        const auto initial = static_cast<std::uint64_t>(bus.at("initial").asInt());
        return {initial, widthOf(bus)};
    }
    }
    throw std::runtime_error("invalid bus data type");
}

OutputPinDefinition outputPin(const JsonObject& pin)
{
    return OutputPinDefinition(static_cast<PinInitialValue>(pin.at("initial").asInt()));
}

DeviceParameter parameter(const JsonObject& compiled)
{
    return {static_cast<ParameterType>(compiled.at("type").asInt()), compiled.at("value").asString()};
}

double realOf(const JsonValue& value)
{
    if (value.isInt())
        return value.asInt();
    if (!value.isDouble())
        throw std::runtime_error("variable link error: invalid type for 'double'");
    return value.asDouble();
}

struct VariableType
{
    std::string_view word;
    DeviceVariableValue (*link)(const JsonValue& value);
};

// The rows stand in the order of the tags.
constexpr std::array<VariableType, 6> variableTypes{{
    {"int", [](const JsonValue& value) -> DeviceVariableValue { return value.asInt(); }},
    {"double", [](const JsonValue& value) -> DeviceVariableValue { return realOf(value); }},
    {"string", [](const JsonValue& value) -> DeviceVariableValue { return value.asString(); }},
    {"bool", [](const JsonValue& value) -> DeviceVariableValue { return value.asBool(); }},
    {"int64_t", [](const JsonValue& value) -> DeviceVariableValue { return std::int64_t{value.asInt()}; }},
    {"uint64_t",
     [](const JsonValue& value) -> DeviceVariableValue { return static_cast<std::uint64_t>(value.asInt()); }},
}};

DeviceVariableValue variable(const JsonObject& compiled)
{
    const std::string& word = compiled.at("type").asString();
    for (const VariableType& type : variableTypes)
        if (type.word == word)
            return type.link(compiled.at("value"));
    throw std::runtime_error(formatText("invalid variable type: '{}'", word));
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
