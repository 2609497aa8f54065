#ifndef JSONREADER_H
#define JSONREADER_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonvalue.h"

#include <iosfwd>

/// A value with an array or an object at its top.
class HALVWIDGETS_EXPORT JsonDocument
{
public:
    /// @throws JsonException "invalid type for JSON document" for any other kind of value.
    explicit JsonDocument(JsonValue value);

    const JsonValue& value() const { return m_value; }

private:
    JsonValue m_value;
};

/// Reads one document; what stands behind it is left unread.
/// @throws JsonReadException with reason and position, also when values are nested deeper than
/// `jsonMaximumDepth`; JsonException "invalid type for JSON document".
HALVWIDGETS_EXPORT JsonDocument readDocument(std::istream& input);

/// The nesting of arrays and objects that the reader takes. It stands far above honest documents and keeps
/// hostile ones from overflowing the stack.
inline constexpr int jsonMaximumDepth = 5000;

/// @throws JsonException "JSON document is not an object", "JSON document is not an array".
HALVWIDGETS_EXPORT const JsonObject& asObject(const JsonDocument& document);
HALVWIDGETS_EXPORT const JsonArray& asArray(const JsonDocument& document);

#endif
