#ifndef DEVICEVALUES_H
#define DEVICEVALUES_H

#include "statechart/deviceenumerations.h"

#include <cstdint>
#include <string>
#include <variant>

/// A value of a device variable; the alternatives stand in the order of the type tags 0 to 5.
using DeviceVariableValue =
    std::variant<std::int32_t, double, std::string, bool, std::int64_t, std::uint64_t>;

/// A value of a bus.
using BusValue = std::variant<std::int64_t, std::uint64_t>;

/// A parameter of a linked device: its value is the definition's text, scale letter and all.
struct DeviceParameter
{
    ParameterType type;
    std::string value;
};

#endif
