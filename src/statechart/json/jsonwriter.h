#ifndef JSONWRITER_H
#define JSONWRITER_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonvalue.h"

#include <iosfwd>
#include <string>

/// Writes a value on one line: `{"a": 1, "b": [1.0,true]}`. A slash is always escaped, keys are written as
/// they stand. Strict readers refuse some of what stands here ("1.e-09"): read it with readDocument().
/// @throws JsonException "invalid number type", "unknown JSON type" for a value that is none.
HALVWIDGETS_EXPORT void write(std::ostream& output, const JsonValue& value);

/// The same as text.
HALVWIDGETS_EXPORT std::string toString(const JsonValue& value);

#endif
