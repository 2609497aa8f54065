#ifndef JSONREADER_H
#define JSONREADER_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonsource.h"
#include "statechart/json/jsonvalue.h"

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
/// `jsonMaximumDepth` or are more than `jsonMaximumValues`; JsonException "invalid type for JSON document".
HALVWIDGETS_EXPORT JsonDocument readDocument(std::istream& input);

/// The nesting of arrays and objects that the reader takes. It stands far above honest documents and keeps
/// hostile ones from overflowing the stack.
inline constexpr int jsonMaximumDepth = 5000;

/// The number of values that the reader takes, those in arrays and objects among them. It stands far above
/// honest documents and keeps hostile ones from filling the memory.
inline constexpr std::size_t jsonMaximumValues = 50'000'000;

/// @throws JsonException "JSON document is not an object", "JSON document is not an array".
HALVWIDGETS_EXPORT const JsonObject& asObject(const JsonDocument& document);
HALVWIDGETS_EXPORT const JsonArray& asArray(const JsonDocument& document);

/// The same of a document that is not needed any more, without a copy: asObject(readDocument(stream)).
HALVWIDGETS_EXPORT JsonObject asObject(JsonDocument&& document);
HALVWIDGETS_EXPORT JsonArray asArray(JsonDocument&& document);

/// Reads values of any kind from where a stream stands; that goes on behind what was read when the reader
/// ends. Containers that are not closed yet stand in a list, so that depth takes no stack. What raises leaves
/// the reader of no further use.
class JsonReader
{
public:
    explicit JsonReader(std::istream& input, std::size_t maximumValues = jsonMaximumValues)
        : m_source(input), m_valuesLeft(maximumValues)
    {}

    /// Any value, and the whitespace around it.
    JsonValue readValue();

    // One kind of value each, whose first byte comes next.
    JsonObject readObject();
    JsonArray readArray();
    bool readBoolean();
    std::string readString() { return std::string(readStringBytes()); }

    /// The quote behind the bytes of a string.
    void readStringEnd();

private:
    struct Container
    {
        bool isArray;
        std::size_t start; // where its own elements or members start in the list of all
    };

    // Each of these tells whether a value was read to its end. If not, the first or the next value in a
    // container comes next.
    bool readStart();
    bool openArray();
    bool openObject();
    bool readBehind();

    /// The rest of a value, and the whitespace behind it.
    JsonValue readOn(bool isComplete);

    /// Puts a value into the container that is open, or where the whole value is kept.
    template <class Content>
    void add(Content&& content);

    void close();
    void open(bool isArray);
    void checkDepth() const;
    void readKey();
    void readLiteral(std::string_view word, const char* reason);
    void takeDigits();
    void takeIntoText() { m_text += m_source.take(); }
    void readNumber();
    template <class Number>
    Number convert() const;

    /// The decoded bytes, which stay until the next byte is read.
    std::string_view readStringBytes();
    void readEscape();

    JsonSource m_source;
    std::size_t m_valuesLeft;
    std::vector<Container> m_open;
    std::vector<JsonValue> m_elements; // of all open arrays, or the whole value
    std::vector<JsonMember> m_members; // of all open objects
    std::string m_text;                // of the token that is being read
};

#endif
