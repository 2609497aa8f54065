#include "simulator/variablevalue.h"

#include "simulator/integertext.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/text/engineeringnumber.h"

#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace {

/// As a value of type T, if it is one.
template <class T>
std::optional<T> valueAs(const JsonValue& value)
{
    if constexpr (std::is_same_v<T, bool>) {
        return value.isBool() ? std::optional(value.asBool()) : std::nullopt;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return value.isString() ? std::optional(value.asString()) : std::nullopt;
    } else if constexpr (std::is_same_v<T, double>) {
        if (value.isInt())
            return value.asInt();
        if (value.isDouble())
            return value.asDouble();
        return value.isString() ? std::optional(parseEngineeringNumber(value.asString())) : std::nullopt;
    } else {
        const std::optional<BusValue> integer = integerOf(value);
        if (!integer)
            return std::nullopt;
        return std::visit(
            [](auto number) {
                return std::in_range<T>(number) ? std::optional(static_cast<T>(number)) : std::nullopt;
            },
            *integer);
    }
}

} // namespace

DeviceVariableValue variableValueOf(const std::string& name, const DeviceVariableValue& held,
                                    const JsonValue& value)
{
    return std::visit(
        [&](const auto& current) -> DeviceVariableValue {
            using T = std::decay_t<decltype(current)>;
            if (const std::optional<T> result = valueAs<T>(value))
                return *result;
            throw std::runtime_error("variable '" + name + "' cannot be " + toString(value));
        },
        held);
}

std::string textOf(const DeviceVariableValue& value)
{
    return std::visit(
        [](const auto& current) -> std::string {
            using T = std::decay_t<decltype(current)>;
            if constexpr (std::is_same_v<T, std::string>) {
                return current;
            } else if constexpr (std::is_same_v<T, bool>) {
                return current ? "true" : "false";
            } else {
                std::array<char, 32> text;
                const auto result = std::to_chars(text.data(), text.data() + text.size(), current);
                return {text.data(), result.ptr};
            }
        },
        value);
}
