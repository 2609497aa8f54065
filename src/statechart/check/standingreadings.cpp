#include "statechart/check/standingreadings.h"

#include "actionlanguage/analysis/constantfolding.h"
#include "statechart/check/unreadactions.h"
#include "statechart/text/engineeringnumber.h"
#include "statechart/text/numbertext.h"

#include <algorithm>
#include <stdexcept>

namespace {

using Answer = StandingReading::Answer;
using Kind = StandingThing::Kind;

const JsonValue* argumentOf(const JsonObject& call, std::size_t index)
{
    const JsonValue* const arguments = call.find("args");
    const bool isThere = arguments != nullptr && arguments->isArray() && arguments->asArray().size() > index;
    return isThere ? &arguments->asArray()[index] : nullptr;
}

/// The same, if it is a literal.
const JsonValue* literalArgument(const JsonObject& call, std::size_t index)
{
    const JsonValue* const argument = argumentOf(call, index);
    return argument != nullptr && !argument->isObject() ? argument : nullptr;
}

std::optional<Answer> edgeAnswer(std::string_view function)
{
    if (function == "isEdgeEvent")
        return Answer::anyEdge;
    if (function == "isPositiveEdge")
        return Answer::risingEdge;
    return function == "isNegativeEdge" ? std::optional(Answer::fallingEdge) : std::nullopt;
}

Answer levelAnswer(std::string_view function)
{
    return function == "isPinLow" || function == "isBusPinLow" ? Answer::negated : Answer::value;
}

/// Of a number, or of the text of one.
std::optional<double> numberIn(const JsonValue& value)
{
    if (value.isNumber())
        return value.isInt() ? value.asInt() : value.asDouble();
    try {
        return value.isString() ? std::optional(parseEngineeringNumber(value.asString())) : std::nullopt;
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

} // namespace

StandingReadings::StandingReadings(const CheckedDefinition& checked)
    : m_folding(checked.folding), m_names(checked.definition)
{
    if (const JsonValue* const variables = checked.definition.find("variables");
        variables != nullptr && variables->isObject()) {
        for (const JsonMember& member : variables->asObject()) {
            if (member.value.isObject())
                m_variables.emplace(member.key, &member.value.asObject());
        }
    }
    findSetVariables(checked);
}

void StandingReadings::findSetVariables(const CheckedDefinition& checked)
{
    const auto isUnread = [](const ChartState& state) { return state.hasUnknownTypeWord(); };
    m_maySetAnyVariable =
        std::ranges::any_of(checked.chart.states(), isUnread) || hasUnreadableActions(checked);
    for (const CompileRecord::Failure& failure : checked.failures)
        m_maySetAnyVariable = m_maySetAnyVariable || failure.text;
    for (const CheckedText& text : checked.texts) {
        visitSourceTree(text.tree, [&](const SourceNode& node) {
            if (node.kind != SourceNodeKind::call || node.text != "setVariable")
                return;
            if (const JsonValue* const name = literalArgument(node.form->asObject(), 0))
                m_setVariables.insert(name->asString());
            else
                m_maySetAnyVariable = true;
        });
    }
}

std::optional<StandingReading> StandingReadings::readingOf(const JsonObject& call)
{
    const std::string& word = call.at("func").asString();
    if (word == "simulationTime")
        return StandingReading{{Kind::time, "time"}, Answer::value, DataType::real};
    const NamingFunction* const function = namingFunctionOf(word);
    const JsonValue* const literal = function != nullptr ? literalArgument(call, 0) : nullptr;
    const DeclaredName* const name = literal != nullptr && literal->isString()
                                         ? m_names.find(literal->asString(), function->role)
                                         : nullptr;
    if (name == nullptr || !fits(name->kind, function->role))
        return std::nullopt;
    switch (name->kind) {
    case NameKind::inputPin:
        if (const std::optional<Answer> edge = edgeAnswer(word))
            return StandingReading{{Kind::edge, "edge", std::string(name->identifier)}, *edge};
        return StandingReading{{Kind::level, "pin " + std::string(name->identifier)}, levelAnswer(word)};
    case NameKind::inputBus:
        return readingOfBus(*function, *name, call);
    case NameKind::parameter:
        if (name->type != function->type)
            return std::nullopt;
        return StandingReading{{Kind::parameter, "parameter " + std::string(name->identifier), {}, name},
                               Answer::value,
                               function->type};
    default:
        return std::nullopt;
    }
}

std::optional<StandingReading> StandingReadings::readingOfBus(const NamingFunction& function,
                                                              const DeclaredName& name,
                                                              const JsonObject& call) const
{
    const std::string key = "bus " + std::string(name.identifier);
    if (!function.hasIndex) {
        if (name.type != function.type || !name.width)
            return std::nullopt;
        return StandingReading{{Kind::number, key, {}, &name}, Answer::value, function.type};
    }
    const JsonValue* const argument = argumentOf(call, 1);
    const std::optional<std::int32_t> index =
        argument != nullptr ? m_folding.intOf(sourceTreeOfExpression(*argument, DataType::integer, {}))
                            : std::nullopt;
    if (!index || !name.width || *index < 0 || *index >= *name.width)
        return std::nullopt;
    return StandingReading{{Kind::level, key + " " + numberText(std::int64_t{*index})},
                           levelAnswer(function.name)};
}

const JsonValue* StandingReadings::constantVariable(const JsonObject& call)
{
    const NamingFunction* const function = namingFunctionOf(call.at("func").asString());
    const JsonValue* const literal = function != nullptr ? literalArgument(call, 0) : nullptr;
    if (literal == nullptr || !literal->isString() || function->role != NameRole::variable)
        return nullptr;
    const std::string& identifier = literal->asString();
    if (m_maySetAnyVariable || m_setVariables.contains(identifier))
        return nullptr;
    const auto variable = m_variables.find(identifier);
    const DeclaredName* const name = m_names.find(identifier, function->role);
    const bool isAskedFor = variable != m_variables.end() && name != nullptr && name->type == function->type;
    return isAskedFor ? variable->second->find("value") : nullptr;
}

std::optional<JsonValue> StandingReadings::constantOf(const JsonObject& call)
{
    const JsonValue* const value = constantVariable(call);
    if (value == nullptr)
        return std::nullopt;
    const DataType type = namingFunctionOf(call.at("func").asString())->type;
    if (type == DataType::string)
        return value->isString() ? std::optional(*value) : std::nullopt;
    if (type == DataType::boolean)
        return value->isBool() ? std::optional(*value) : std::nullopt;
    if (type != DataType::real && !value->isInt())
        return std::nullopt;
    const std::optional<double> number = numberIn(*value);
    return number ? std::optional(ConstantFolding::literal(type, *number)) : std::nullopt;
}

std::optional<double> StandingReadings::numberOf(const JsonObject& call)
{
    if (call.at("func").equals("etod")) {
        const JsonValue* const text = literalArgument(call, 0);
        return text != nullptr ? numberIn(*text) : std::nullopt;
    }
    const JsonValue* const value = constantVariable(call);
    return value != nullptr ? numberIn(*value) : std::nullopt;
}
