#include "statechart/check/namingfunction.h"

#include <algorithm>
#include <array>

namespace {

using Role = NameRole;

// To add a device function that names something, add its row.
constexpr auto functions = std::to_array<NamingFunction>({
    {.name = "setVariable", .role = Role::variable, .setsVariable = true},
    {.name = "getVariable_int", .role = Role::variable, .type = DataType::integer},
    {.name = "getVariable_double", .role = Role::variable, .type = DataType::real},
    {.name = "getVariable_string", .role = Role::variable, .type = DataType::string},
    {.name = "getVariable_bool", .role = Role::variable, .type = DataType::boolean},
    {.name = "getVariable_int64_t", .role = Role::variable, .type = DataType::integer64},
    {.name = "getVariable_uint64_t", .role = Role::variable, .type = DataType::unsigned64},
    {.name = "getParameter_int64_t", .role = Role::parameter, .type = DataType::integer64},
    {.name = "getParameter_uint64_t", .role = Role::parameter, .type = DataType::unsigned64},
    {.name = "getParameter_double", .role = Role::parameter, .type = DataType::real},
    {.name = "readBus_int64_t", .role = Role::bus, .type = DataType::integer64},
    {.name = "readBus_uint64_t", .role = Role::bus, .type = DataType::unsigned64},
    {.name = "writeBus", .role = Role::drivenBus, .writesBus = true},
    {.name = "isPinHigh", .role = Role::pin},
    {.name = "isPinLow", .role = Role::pin},
    {.name = "isBusPinHigh", .role = Role::bus, .hasIndex = true},
    {.name = "isBusPinLow", .role = Role::bus, .hasIndex = true},
    {.name = "isEdgeEvent", .role = Role::eventPin},
    {.name = "isPositiveEdge", .role = Role::eventPin},
    {.name = "isNegativeEdge", .role = Role::eventPin},
    {.name = "setBusPinHigh", .role = Role::drivenBus, .hasIndex = true},
    {.name = "setBusPinLow", .role = Role::drivenBus, .hasIndex = true},
    {.name = "setPinHigh", .role = Role::drivenPin},
    {.name = "setPinLow", .role = Role::drivenPin},
});

} // namespace

const NamingFunction* namingFunctionOf(std::string_view name)
{
    const auto* const function = std::ranges::find(functions, name, &NamingFunction::name);
    return function == functions.end() ? nullptr : function;
}

bool isTerminal(NameRole role)
{
    return role != Role::variable && role != Role::parameter;
}

bool drives(NameRole role)
{
    return role == Role::drivenPin || role == Role::drivenBus;
}

std::string_view describe(NameRole role)
{
    switch (role) {
    case Role::pin:
        return "a pin";
    case Role::eventPin:
        return "an input pin";
    case Role::drivenPin:
        return "an output pin";
    case Role::bus:
        return "a bus";
    case Role::drivenBus:
        return "an output bus";
    case Role::variable:
        return "a variable";
    case Role::parameter:
        break;
    }
    return "a parameter";
}

std::string_view sectionWord(NameRole role)
{
    switch (role) {
    case Role::pin:
    case Role::eventPin:
    case Role::drivenPin:
        return "pin";
    case Role::bus:
    case Role::drivenBus:
        return "bus";
    case Role::variable:
        return "variable";
    case Role::parameter:
        break;
    }
    return "parameter";
}
