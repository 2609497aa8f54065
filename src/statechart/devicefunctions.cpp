#include "statechart/devicefunctions.h"

#include "statechart/digitaldeviceactor.h"
#include "statechart/text/engineeringnumber.h"

#include <array>

namespace {

using Actor = AbstractDigitalDeviceActor;
using Text = std::string;

/// The delay of the pin functions that are called without one.
double outputDelay(Actor& actor)
{
    return actor.getParameter_double("OUTPUT_DELAY");
}

/// An operation of the actor, as it stands.
template <auto operation>
struct Forward;

template <class Result, class... Arguments, Result (Actor::*operation)(Arguments...)>
struct Forward<operation>
{
    static FunctionOverloads overloads()
    {
        return functionOverloads([](Actor& actor, const std::decay_t<Arguments>&... arguments) {
            return (actor.*operation)(arguments...);
        });
    }
};

template <class Value>
FunctionOverload setVariable()
{
    return functionOverload([](Actor& actor, const Text& name, const Value& value) {
        actor.setVariable(name, DeviceVariableValue(value));
    });
}

FunctionOverloads setVariableOverloads()
{
    FunctionOverloads overloads;
    overloads.push_back(setVariable<std::int32_t>());
    overloads.push_back(setVariable<double>());
    overloads.push_back(setVariable<Text>());
    overloads.push_back(setVariable<bool>());
    overloads.push_back(setVariable<std::int64_t>());
    overloads.push_back(setVariable<std::uint64_t>());
    return overloads;
}

/// `Value` is what the action gives, `Written` what the bus takes.
template <class Value, class Written>
void appendWriteBus(FunctionOverloads& overloads)
{
    overloads.push_back(functionOverload([](Actor& actor, const Text& bus, Value value) {
        actor.writeBus(bus, BusValue(std::in_place_type<Written>, value), 0.0);
    }));
    overloads.push_back(functionOverload([](Actor& actor, const Text& bus, Value value, double delay) {
        actor.writeBus(bus, BusValue(std::in_place_type<Written>, value), delay);
    }));
}

FunctionOverloads writeBusOverloads()
{
    FunctionOverloads overloads;
    appendWriteBus<std::int32_t, std::int64_t>(overloads);
    appendWriteBus<std::int64_t, std::int64_t>(overloads);
    appendWriteBus<std::uint64_t, std::uint64_t>(overloads);
    return overloads;
}

template <auto operation>
FunctionOverloads setBusPin()
{
    return functionOverloads([](Actor& actor, const Text& bus,
                                std::int32_t index) { (actor.*operation)(bus, index, outputDelay(actor)); },
                             [](Actor& actor, const Text& bus, std::int32_t index, double delay) {
                                 (actor.*operation)(bus, index, delay);
                             });
}

template <auto operation>
FunctionOverloads setPin()
{
    return functionOverloads(
        [](Actor& actor, const Text& pin) { (actor.*operation)(pin, outputDelay(actor)); },
        [](Actor& actor, const Text& pin, double delay) { (actor.*operation)(pin, delay); });
}

FunctionOverloads etod()
{
    return functionOverloads(
        [](AbstractExecutionInterface&, const Text& text) { return parseEngineeringNumber(text); });
}

struct DeviceFunction
{
    std::string_view name;
    FunctionOverloads (*overloads)();
};

constexpr auto table = std::to_array<DeviceFunction>({
    {"setVariable", setVariableOverloads},
    {"getVariable_int", Forward<&Actor::getVariable_int>::overloads},
    {"getVariable_double", Forward<&Actor::getVariable_double>::overloads},
    {"getVariable_string", Forward<&Actor::getVariable_string>::overloads},
    {"getVariable_bool", Forward<&Actor::getVariable_bool>::overloads},
    {"getVariable_int64_t", Forward<&Actor::getVariable_int64_t>::overloads},
    {"getVariable_uint64_t", Forward<&Actor::getVariable_uint64_t>::overloads},
    {"getParameter_int64_t", Forward<&Actor::getParameter_int64_t>::overloads},
    {"getParameter_uint64_t", Forward<&Actor::getParameter_uint64_t>::overloads},
    {"getParameter_double", Forward<&Actor::getParameter_double>::overloads},
    {"readBus_int64_t", Forward<&Actor::readBus_int64_t>::overloads},
    {"readBus_uint64_t", Forward<&Actor::readBus_uint64_t>::overloads},
    {"writeBus", writeBusOverloads},
    {"isPinHigh", Forward<&Actor::isPinHigh>::overloads},
    {"isPinLow", Forward<&Actor::isPinLow>::overloads},
    {"isBusPinHigh", Forward<&Actor::isBusPinHigh>::overloads},
    {"isBusPinLow", Forward<&Actor::isBusPinLow>::overloads},
    {"simulationTime", Forward<&Actor::simulationTime>::overloads},
    {"isEdgeEvent", Forward<&Actor::isEdgeEvent>::overloads},
    {"isPositiveEdge", Forward<&Actor::isPositiveEdge>::overloads},
    {"isNegativeEdge", Forward<&Actor::isNegativeEdge>::overloads},
    {"setBusPinHigh", setBusPin<&Actor::setBusPinHigh>},
    {"setBusPinLow", setBusPin<&Actor::setBusPinLow>},
    {"setPinHigh", setPin<&Actor::setPinHigh>},
    {"setPinLow", setPin<&Actor::setPinLow>},
    {"etod", etod},
});
static_assert(table.size() == 26);

} // namespace

FunctionRules constructDeviceFunctionRules()
{
    FunctionRules rules;
    rules.reserve(table.size());
    for (const DeviceFunction& function : table)
        rules.push_back(std::make_unique<FunctionRule>(function.name, function.overloads()));
    return rules;
}
