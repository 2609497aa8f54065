#ifndef DEVICEVALUES_H
#define DEVICEVALUES_H

#include "statechart/deviceenumerations.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

/// A value of a device variable; the alternatives stand in the order of the type tags 0 to 5.
using DeviceVariableValue =
    std::variant<std::int32_t, double, std::string, bool, std::int64_t, std::uint64_t>;

/// How the language spells the type of each alternative.
inline constexpr std::array<std::string_view, std::variant_size_v<DeviceVariableValue>> deviceVariableTypes{
    "int", "double", "string", "bool", "int64_t", "uint64_t"};

/// A value of a bus.
using BusValue = std::variant<std::int64_t, std::uint64_t>;

/// A parameter of a linked device: its value is the definition's text, scale letter and all.
struct DeviceParameter
{
    ParameterType type;
    std::string value;
};

#endif
