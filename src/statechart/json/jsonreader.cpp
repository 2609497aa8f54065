#include "statechart/json/jsonreader.h"

#include "statechart/json/jsonescape.h"

#include <charconv>
#include <istream>

namespace {

bool isDigit(int byte)
{
    return byte >= '0' && byte <= '9';
}

bool startsValue(int byte)
{
    return byte == '"' || byte == '[' || byte == '{' || byte == 'f' || byte == 't' || byte == 'n' ||
           byte == '-' || isDigit(byte);
}

} // namespace

JsonValue JsonReader::readValue()
{
    m_source.skipWhitespace();
    JsonValue value;
    readOn(readInto(value));
    return value;
}

JsonObject JsonReader::readObject()
{
    JsonValue value;
    readOn(openObject(value));
    return std::move(value.asObject());
}

JsonArray JsonReader::readArray()
{
    JsonValue value;
    readOn(openArray(value));
    return std::move(value.asArray());
}

void JsonReader::readOn(JsonValue* next)
{
    for (;;) {
        if (next == nullptr)
            next = nextPlace();
        if (next == nullptr)
            return;
        m_source.skipWhitespace();
        next = readInto(*next);
    }
}

JsonValue* JsonReader::nextPlace()
{
    m_source.skipWhitespace();
    while (!m_open.empty()) {
        JsonValue& container = *m_open.back();
        const bool isArray = container.isArray();
        if (m_source.here() == ',') {
            m_source.take();
            return isArray ? &container.asArray().emplace_back() : placeOfMember(container.asObject());
        }
        if (isArray)
            m_source.takeIf(']', "expected ',' or ']'");
        else
            m_source.takeIf('}', "expected ',' or '}'");
        m_open.pop_back();
        m_source.skipWhitespace();
    }
    return nullptr;
}

JsonValue* JsonReader::readInto(JsonValue& place)
{
    switch (m_source.here()) {
    case '"':
        place = readString();
        return nullptr;
    case '[':
        return openArray(place);
    case '{':
        return openObject(place);
    case 'f':
    case 't':
        place = readBoolean();
        return nullptr;
    case 'n':
        readLiteral("null", "expected 'null'");
        return nullptr; // a place is null from the start
    default:
        if (!startsValue(m_source.here()))
            m_source.fail("expected value");
        place = readNumber();
        return nullptr;
    }
}

void JsonReader::checkDepth() const
{
    if (m_open.size() >= static_cast<std::size_t>(jsonMaximumDepth))
        m_source.fail("nesting too deep");
}

JsonValue* JsonReader::openArray(JsonValue& place)
{
    checkDepth();
    m_source.takeIf('[', "expected [");
    m_source.skipWhitespace();
    place = JsonArray();
    if (m_source.here() == ']') {
        m_source.take();
        return nullptr;
    }
    if (!startsValue(m_source.here()))
        m_source.fail("expected ] or array definition");
    m_open.push_back(&place);
    return &place.asArray().emplace_back();
}

JsonValue* JsonReader::openObject(JsonValue& place)
{
    checkDepth();
    m_source.takeIf('{', "expected {");
    m_source.skipWhitespace();
    place = JsonObject();
    if (m_source.here() == '}') {
        m_source.take();
        return nullptr;
    }
    if (m_source.here() != '"')
        m_source.fail("expected } or object definition");
    m_open.push_back(&place);
    return placeOfMember(place.asObject());
}

JsonValue* JsonReader::placeOfMember(JsonObject& object)
{
    m_source.skipWhitespace();
    readStringIntoText();
    m_source.skipWhitespace();
    m_source.takeIf(':', "expected :");
    JsonValue* const place = object.add(m_text);
    return place != nullptr ? place : &m_discarded.emplace_back(); // the first of a key stays
}

bool JsonReader::readBoolean()
{
    switch (m_source.here()) {
    case 't':
        readLiteral("true", "expected 'true'");
        return true;
    case 'f':
        readLiteral("false", "expected 'false'");
        return false;
    default:
        m_source.fail("expected 'true' or 'false'");
    }
}

void JsonReader::readLiteral(std::string_view word, const char* reason)
{
    for (const char byte : word)
        m_source.takeIf(byte, reason);
}

void JsonReader::takeDigits()
{
    while (isDigit(m_source.here()))
        takeIntoText();
}

JsonValue JsonReader::readNumber()
{
    m_text.clear();
    if (m_source.here() == '-')
        takeIntoText();
    if (m_source.here() == '0')
        takeIntoText();
    else if (isDigit(m_source.here()))
        takeDigits();
    else
        m_source.fail("expected number 0-9");
    const bool isReal = m_source.here() == '.';
    if (isReal) {
        takeIntoText();
        takeDigits();
    }
    if (m_source.here() == 'e' || m_source.here() == 'E') {
        takeIntoText();
        if (m_source.here() == '+' || m_source.here() == '-')
            takeIntoText();
        takeDigits();
    }
    return isReal ? convert(0.0) : convert(std::int32_t{0});
}

/// What the conversion leaves of the text is dropped with it: "1e3" is the integer 1.
template <class Number>
JsonValue JsonReader::convert(Number number) const
{
    if (std::from_chars(m_text.data(), m_text.data() + m_text.size(), number).ec != std::errc())
        m_source.fail("invalid number");
    return JsonValue(number);
}

std::string JsonReader::readString()
{
    readStringIntoText();
    return m_text;
}

void JsonReader::readStringIntoText()
{
    m_source.takeIf('"', "expected string opening \"");
    m_text.clear();
    while (m_source.here() != '"' && m_source.here() != JsonSource::end) {
        if (m_source.here() == '\\')
            readEscape();
        else
            m_source.takePlainBytes(m_text);
    }
    if (m_source.here() == JsonSource::end)
        m_source.fail("unexpected end of string");
    readStringEnd();
}

void JsonReader::readStringEnd()
{
    m_source.takeIf('"', "expected closing string \"");
}

void JsonReader::readEscape()
{
    m_source.take();
    if (m_source.here() == JsonSource::end)
        m_source.fail("unexpected end of string");
    const char* const byte = unescaped(static_cast<char>(m_source.here()));
    if (byte == nullptr)
        m_source.fail("unexepected escaped character");
    m_text += *byte;
    m_source.take();
}

JsonDocument::JsonDocument(JsonValue value) : m_value(std::move(value))
{
    if (!m_value.isArray() && !m_value.isObject())
        throw JsonException("invalid type for JSON document");
}

JsonDocument readDocument(std::istream& input)
{
    return JsonDocument(JsonReader(input).readValue());
}

const JsonObject& asObject(const JsonDocument& document)
{
    if (!document.value().isObject())
        throw JsonException("JSON document is not an object");
    return document.value().asObject();
}

const JsonArray& asArray(const JsonDocument& document)
{
    if (!document.value().isArray())
        throw JsonException("JSON document is not an array");
    return document.value().asArray();
}

JsonObject asObject(JsonDocument&& document)
{
    asObject(std::as_const(document));
    return std::move(std::move(document).value().asObject());
}

JsonArray asArray(JsonDocument&& document)
{
    asArray(std::as_const(document));
    return std::move(std::move(document).value().asArray());
}
