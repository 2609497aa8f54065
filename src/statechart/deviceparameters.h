#ifndef DEVICEPARAMETERS_H
#define DEVICEPARAMETERS_H

#include "statechart/compilerecord.h"
#include "statechart/json/jsonvalue.h"

/// The compiled record of a parameter, {"type": number, "value": text}, from what a definition says of it.
/// @throws std::runtime_error when "type" or "value" is missing or wrong.
JsonObject compileParameter(const JsonObject& definition, CompileRecord& record);

/// The parameter that a device's "outputDelay" becomes.
inline constexpr const char* outputDelayParameter = "OUTPUT_DELAY";

/// Puts the definition's "outputDelay" among the compiled parameters.
/// @throws JsonTypeException "invalid key" when there is none; std::runtime_error when it is of no fitting
/// type.
void compileOutputDelay(const JsonObject& definition, JsonObject& parameters, CompileRecord& record);

/// Checks the delay that is left when the definition's own parameters, which may replace it, have joined.
/// @throws std::runtime_error when it is no "double", no number, or 0.
void checkOutputDelay(const JsonObject& definition, const JsonObject& parameters, CompileRecord& record);

#endif
