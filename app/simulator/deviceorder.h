#ifndef DEVICEORDER_H
#define DEVICEORDER_H

#include "statechart/json/jsonvalue.h"

#include <string>
#include <vector>

/// The names of what a device has, in the order of its file: the tables of a linked device have none.
struct DeviceOrder
{
    explicit DeviceOrder(const JsonObject& compiled);

    std::vector<std::string> inputPins;
    std::vector<std::string> inputBuses;
    std::vector<std::string> outputPins;
    std::vector<std::string> outputBuses;
    std::vector<std::string> variables;
    std::vector<std::string> parameters;
};

#endif
