#ifndef DEFINITIONCOMPILE_H
#define DEFINITIONCOMPILE_H

#include "statechart/json/jsonvalue.h"

#include <iosfwd>

/// The definition that stands in a stream, which must be one that can be rewound.
/// @throws JsonLineNumberReadException for what is no JSON, JsonException for a document that is no object.
JsonObject readDefinitionDocument(std::istream& input);

/// The compiled device of a definition. @throws what the device compiler raises.
JsonObject compileDefinitionDocument(const JsonObject& definition);

#endif
