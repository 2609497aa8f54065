#ifndef DEFINITIONCOMPILE_H
#define DEFINITIONCOMPILE_H

#include "statechart/json/jsonvalue.h"

#include <string>

/// The definition that a text holds.
/// @throws JsonLineNumberReadException for what is no JSON, JsonException for a document that is no object.
JsonObject readDefinitionDocument(std::string text);

/// The compiled device of a definition. @throws what the device compiler raises.
JsonObject compileDefinitionDocument(const JsonObject& definition);

#endif
