#ifndef DEVICEVARIABLES_H
#define DEVICEVARIABLES_H

#include "statechart/compilerecord.h"
#include "statechart/json/jsonvalue.h"

/// The compiled record of a variable, {"type": word, "value"}, from what a definition says of it.
/// @throws JsonTypeException "invalid key" without a "type"; std::runtime_error for an unknown type, and for
/// a value that does not fit its type.
JsonObject compileVariable(const JsonObject& definition, CompileRecord& record);

#endif
