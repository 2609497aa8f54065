#ifndef JSONTEXT_H
#define JSONTEXT_H

#include "statechart/json/jsonvalue.h"

#include <string_view>

/// The document that a text is.
/// @throws JsonException; a syntax error with its line and character
JsonValue readJsonText(std::string_view text);

#endif
