#include "statechart/devicevariables.h"

#include "statechart/text/engineeringnumber.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace {

/// The value as it is compiled, or none when it does not fit.
using ValueCompiler = std::optional<JsonValue> (*)(const JsonValue& value);

std::optional<JsonValue> integerValue(const JsonValue& value)
{
    return value.isInt() ? std::optional(value) : std::nullopt;
}

/// Infinity has no text in JSON: a compiled file that held it could not be read back.
double finiteNumber(const std::string& text)
{
    const double number = parseEngineeringNumber(text);
    if (!std::isfinite(number))
        throw std::runtime_error("invalid format for number conversion");
    return number;
}

std::optional<JsonValue> realValue(const JsonValue& value)
{
    if (value.isString())
        return JsonValue(finiteNumber(value.asString()));
    return value.isNumber() ? std::optional(value) : std::nullopt;
}

std::optional<JsonValue> stringValue(const JsonValue& value)
{
    return value.isString() ? std::optional(value) : std::nullopt;
}

std::optional<JsonValue> booleanValue(const JsonValue& value)
{
    return value.isBool() ? std::optional(value) : std::nullopt;
}

struct VariableType
{
    std::string_view word;
    ValueCompiler compileValue;
    const char* message;
};

// To add a type of variable, add its row here and link it in the run-time.
constexpr std::array<VariableType, 6> variableTypes{{
    {"int", integerValue, "int variable requires integer value"},
    {"double", realValue, "double variable requires numeric value"},
    {"string", stringValue, "string variable requires string value"},
    {"bool", booleanValue, "bool variable requires boolean value"},
    {"int64_t", integerValue, "int64_t variable requires int64_t value"},
    {"uint64_t", integerValue, "uint64_t variable requires uint64_t value"},
}};

const VariableType& typeOf(const JsonObject& definition, CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("type");
    const std::string& word = definition.at("type").asString();
    const auto* const type = std::find_if(variableTypes.begin(), variableTypes.end(),
                                          [&](const VariableType& row) { return row.word == word; });
    if (type == variableTypes.end())
        throw std::runtime_error(formatText("invalid variable type: '{}'", word));
    return *type;
}

} // namespace

JsonObject compileVariable(const JsonObject& definition, CompileRecord& record)
{
    const VariableType& type = typeOf(definition, record);
    const CompileRecord::Step step = record.enter("value");
    const JsonValue* const value = definition.find("value");
    std::optional<JsonValue> compiled;
    if (value != nullptr)
        compiled = type.compileValue(*value);
    if (!compiled)
        throw std::runtime_error(type.message);
    return JsonObject{{"type", type.word}, {"value", *compiled}};
}
