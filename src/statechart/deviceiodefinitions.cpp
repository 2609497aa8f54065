#include "statechart/deviceiodefinitions.h"

AbstractIODefinition::~AbstractIODefinition() = default;

AbstractBusDefinition::AbstractBusDefinition(BusDataType busDataType, BusEncoding busEncoding,
                                             std::uint32_t busWidth)
    : dataType(busDataType), encoding(busEncoding), width(busWidth)
{}

int AbstractBusDefinition::type() const
{
    return bus;
}

int AbstractPinDefinition::type() const
{
    return pin;
}

InputBusDefinition::InputBusDefinition(BusDataType busDataType, BusEncoding busEncoding,
                                       std::uint32_t busWidth)
    : AbstractBusDefinition(busDataType, busEncoding, busWidth)
{}

OutputBusDefinition::OutputBusDefinition(std::int64_t initialValue, BusEncoding busEncoding,
                                         std::uint32_t busWidth)
    : AbstractBusDefinition(BusDataType::int64, busEncoding, busWidth), initial(initialValue)
{}

OutputBusDefinition::OutputBusDefinition(std::uint64_t initialValue, std::uint32_t busWidth)
    : AbstractBusDefinition(BusDataType::uint64, BusEncoding::unsignedBinary, busWidth), initial(initialValue)
{}

OutputPinDefinition::OutputPinDefinition(PinInitialValue initialValue) : initial(initialValue) {}
