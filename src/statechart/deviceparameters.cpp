#include "statechart/deviceparameters.h"

#include "statechart/deviceenumerations.h"
#include "statechart/text/engineeringnumber.h"
#include "statechart/text/numbertext.h"

#include <optional>
#include <stdexcept>

namespace {

constexpr const char* typeMessage =
    "parameter must have \"type\" property that is either \"int64_t\", \"uint64_t\" or \"double\"";
constexpr const char* typeWordMessage = "invalid device parameter type";
constexpr const char* valueMessage =
    "parameter must have \"value\" property that is a number or string that can convert to a number";
constexpr const char* delayMessage = "invalid value of \"outputDelay\"";
constexpr const char* delayNumberMessage = "unrecognised number type for 'outputDelay'";
constexpr const char* delayTypeMessage = "OUTPUT_DELAY parameter must be of type 'double'";
constexpr const char* delayZeroMessage = "OUTPUT_DELAY parameter cannot be '0'";

/// The shortest text of a number; none for one that is neither integer nor double.
std::optional<std::string> textOf(const JsonNumber& number)
{
    switch (number.kind()) {
    case JsonNumber::Kind::integer:
        return numberText(std::int64_t{number.integer()});
    case JsonNumber::Kind::real:
        return numberText(number.real());
    }
    return std::nullopt;
}

bool isNumberText(const std::string& text)
{
    try {
        parseEngineeringNumber(text);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

ParameterType compileType(const JsonObject& definition, CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("type");
    const JsonValue* const word = definition.find("type");
    if (word == nullptr || !word->isString())
        throw std::runtime_error(typeMessage);
    const std::optional<ParameterType> type = valueOfWord(parameterTypeWords, word->asString());
    if (!type)
        throw std::runtime_error(typeWordMessage);
    return *type;
}

std::string compileValue(const JsonObject& definition, CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("value");
    const JsonValue* const value = definition.find("value");
    std::optional<std::string> text;
    if (value != nullptr && value->isNumber())
        text = textOf(value->asNumber());
    else if (value != nullptr && value->isString() && isNumberText(value->asString()))
        text = value->asString();
    if (!text)
        throw std::runtime_error(valueMessage);
    return *text;
}

JsonObject parameterRecord(ParameterType type, std::string value)
{
    return JsonObject{{"type", static_cast<std::int32_t>(type)}, {"value", std::move(value)}};
}

} // namespace

JsonObject compileParameter(const JsonObject& definition, CompileRecord& record)
{
    ParameterType type = ParameterType::real;
    record.attempt([&] { type = compileType(definition, record); });
    return parameterRecord(type, compileValue(definition, record));
}

void compileOutputDelay(const JsonObject& definition, JsonObject& parameters, CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("outputDelay");
    const JsonValue& delay = definition.at("outputDelay");
    if (!delay.isNumber() && !delay.isString())
        throw std::runtime_error(delayMessage);
    const std::optional<std::string> text =
        delay.isString() ? std::optional(delay.asString()) : textOf(delay.asNumber());
    if (!text)
        throw std::runtime_error(delayNumberMessage);
    parameters.set(outputDelayParameter, parameterRecord(ParameterType::real, *text));
}

void checkOutputDelay(const JsonObject& definition, const JsonObject& parameters, CompileRecord& record)
{
    const JsonValue* const own = definition.find("parameters");
    const bool isReplaced = own != nullptr && own->has(outputDelayParameter);
    const CompileRecord::Step step = record.enter(isReplaced ? "parameters" : "outputDelay");
    std::optional<CompileRecord::Step> parameterStep;
    if (isReplaced)
        parameterStep.emplace(record, std::string(outputDelayParameter));
    const JsonValue& delay = parameters.at(outputDelayParameter);
    if (!delay.member("type").equals(static_cast<std::int32_t>(ParameterType::real)))
        throw std::runtime_error(delayTypeMessage);
    if (parseEngineeringNumber(delay.member("value").asString()) == 0.0)
        throw std::runtime_error(delayZeroMessage);
}
