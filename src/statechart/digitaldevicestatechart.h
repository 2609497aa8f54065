#ifndef DIGITALDEVICESTATECHART_H
#define DIGITALDEVICESTATECHART_H

#include "statechart/deviceiodefinitions.h"
#include "statechart/runtime/statechart.h"

#include <unordered_map>

/// The chart of a device, with what the device has, by identifier.
class HALVWIDGETS_EXPORT DigitalDeviceStateChart : public StateChart
{
public:
    template <class T>
    using Table = std::unordered_map<std::string, T>;

    ~DigitalDeviceStateChart() override;

    Table<InputBusDefinition> inputBuses;
    Table<InputPinDefinition> inputPins;
    Table<OutputBusDefinition> outputBuses;
    Table<OutputPinDefinition> outputPins;
    Table<DeviceParameter> parameters;
    Table<DeviceVariableValue> variables;       ///< as they are at the start
    Table<ExpressionPointer<double>> wakeTimes; ///< by the transition that the wake fires
};

#endif
