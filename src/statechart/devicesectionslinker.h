#ifndef DEVICESECTIONSLINKER_H
#define DEVICESECTIONSLINKER_H

#include "statechart/digitaldevicestatechart.h"
#include "statechart/json/jsonvalue.h"

/// Fills the tables of pins, buses, parameters and variables from the sections of a compiled device.
/// @throws JsonTypeException, std::runtime_error
void linkDeviceSections(const JsonObject& compiled, DigitalDeviceStateChart& chart);

#endif
