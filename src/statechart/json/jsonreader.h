#ifndef JSONREADER_H
#define JSONREADER_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonsource.h"
#include "statechart/json/jsonvalue.h"

#include <deque>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A value with an array or an object at its top.
class HALVWIDGETS_EXPORT JsonDocument
{
public:
    /// @throws JsonException "invalid type for JSON document" for any other kind of value.
    explicit JsonDocument(JsonValue value);

    const JsonValue& value() const& { return m_value; }
    JsonValue value() && { return std::move(m_value); }

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

/// The same of a document that is not needed any more, without a copy: asObject(readDocument(stream)).
HALVWIDGETS_EXPORT JsonObject asObject(JsonDocument&& document);
HALVWIDGETS_EXPORT JsonArray asArray(JsonDocument&& document);

/// Reads values of any kind from where a stream stands. Containers that are not closed yet stand in a list,
/// so that depth takes no stack. What raises leaves the reader of no further use.
class JsonReader
{
public:
    explicit JsonReader(std::istream& input) : m_source(input) {}

    /// Any value, and the whitespace around it.
    JsonValue readValue();

    // One kind of value each, whose first byte comes next.
    JsonObject readObject();
    JsonArray readArray();
    bool readBoolean();
    std::string readString();

    /// The quote behind the bytes of a string.
    void readStringEnd();

private:
    // Each of these fills a place. What they give is the place of the first value inside a container, which
    // is then to be filled next, or null when nothing is left to fill in this place.
    JsonValue* readInto(JsonValue& place);
    JsonValue* openArray(JsonValue& place);
    JsonValue* openObject(JsonValue& place);

    /// Fills `next`, and whatever follows up to the end of all open containers.
    void readOn(JsonValue* next);

    /// The place behind the value that was just read, or null when all containers have ended.
    JsonValue* nextPlace();
    JsonValue* placeOfMember(JsonObject& object);

    void checkDepth() const;
    void readLiteral(std::string_view word, const char* reason);
    void takeDigits();
    void takeIntoText() { m_text += static_cast<char>(m_source.take()); }
    JsonValue readNumber();
    template <class Number>
    JsonValue convert(Number number) const;
    void readStringIntoText();
    void readEscape();

    JsonSource m_source;
    std::vector<JsonValue*> m_open;    // each stands in the one before it, and grows only when it is the last
    std::deque<JsonValue> m_discarded; // values of keys that were there already
    std::string m_text;                // of the token that is being read
};

#endif
