#ifndef VARIABLEVALUE_H
#define VARIABLEVALUE_H

#include "statechart/devicevalues.h"
#include "statechart/json/jsonvalue.h"

#include <string>

/// The value of a stimulus as one of the type that a variable holds: a boolean, a text, a number, or for a
/// number a text of one ("0xff" for integers, an engineering suffix for a double).
/// @throws std::runtime_error for a value that is none of the type
DeviceVariableValue variableValueOf(const std::string& name, const DeviceVariableValue& held,
                                    const JsonValue& value);

/// As people write it: digits, "true", a double in the shortest form that reads back the same, text as it is.
std::string textOf(const DeviceVariableValue& value);

#endif
