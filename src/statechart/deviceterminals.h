#ifndef DEVICETERMINALS_H
#define DEVICETERMINALS_H

#include "statechart/compilerecord.h"
#include "statechart/json/jsonvalue.h"

// Pins and buses of a device: what a definition says of one is checked and becomes its compiled record.
// Each check that fails raises std::runtime_error with the words that the table in the source file has for
// it.

/// {"type": "pin"}, or {"type": "bus", "width", "dataType", "encoding"}.
JsonObject compileInput(const JsonObject& definition, CompileRecord& record);

/// The same with "initial" behind "type".
JsonObject compileOutput(const JsonObject& definition, CompileRecord& record);

#endif
