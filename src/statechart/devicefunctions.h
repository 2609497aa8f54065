#ifndef DEVICEFUNCTIONS_H
#define DEVICEFUNCTIONS_H

#include "actionlanguage/expressions/functionrule.h"

/// The functions by which an action reads and drives a device: 26 names, in the order in which they are
/// looked for. Code that calls them must run against an AbstractDigitalDeviceActor.
/// To add one, add a row in devicefunctions.cpp and an operation of AbstractDigitalDeviceActor.
FunctionRules constructDeviceFunctionRules();

#endif
