#include "statechart/json/jsonreader.h"

#include "statechart/json/jsonescape.h"

#include <charconv>
#include <istream>
#include <iterator>
#include <memory>
#include <utility>

namespace {

bool isDigit(int byte)
{
    return byte >= '0' && byte <= '9';
}

// An array that is not worth moving to a place of the right size.
constexpr std::size_t largeArray = 65536;

bool startsValue(int byte)
{
    return byte == '"' || byte == '[' || byte == '{' || byte == 'f' || byte == 't' || byte == 'n' ||
           byte == '-' || isDigit(byte);
}

} // namespace

JsonValue JsonReader::readValue()
{
    m_source.skipWhitespace();
    return readOn(readStart());
}

JsonObject JsonReader::readObject()
{
    return std::move(readOn(openObject()).asObject());
}

JsonArray JsonReader::readArray()
{
    return std::move(readOn(openArray()).asArray());
}

JsonValue JsonReader::readOn(bool isComplete)
{
    m_source.skipWhitespace();
    while (!isComplete || !m_open.empty()) {
        isComplete = isComplete ? readBehind() : readStart();
        m_source.skipWhitespace();
    }
    JsonValue value = std::move(m_elements.back());
    m_elements.pop_back();
    return value;
}

template <class Content>
void JsonReader::add(Content&& content)
{
    if (m_open.empty() || m_open.back().isArray)
        m_elements.emplace_back(std::forward<Content>(content));
    else // a member is null from the start, which needs no end
        std::construct_at(&m_members.back().value, std::forward<Content>(content));
}

bool JsonReader::readStart()
{
    if (m_valuesLeft == 0)
        m_source.fail("too many values");
    --m_valuesLeft;
    switch (m_source.here()) {
    case '"':
        add(readStringBytes());
        return true;
    case '[':
        return openArray();
    case '{':
        return openObject();
    case 'f':
    case 't':
        add(readBoolean());
        return true;
    case 'n':
        readLiteral("null", "expected 'null'");
        add(JsonNull());
        return true;
    default:
        if (!startsValue(m_source.here()))
            m_source.fail("expected value");
        readNumber();
        return true;
    }
}

/// Reads on behind a value in a container.
bool JsonReader::readBehind()
{
    const bool isArray = m_open.back().isArray;
    if (m_source.here() == ',') {
        m_source.take();
        if (isArray)
            m_source.skipWhitespace();
        else
            readKey();
        return false;
    }
    if (isArray)
        m_source.takeIf(']', "expected ',' or ']'");
    else
        m_source.takeIf('}', "expected ',' or '}'");
    close();
    return true;
}

/// What was gathered is moved to where it is to stay, with no more room than it needs.
void JsonReader::close()
{
    const auto [isArray, start] = m_open.back();
    m_open.pop_back();
    const auto offset = static_cast<std::ptrdiff_t>(start);
    if (isArray && start == 0 && m_elements.size() >= largeArray) {
        add(std::exchange(m_elements, {}));
    } else if (isArray) {
        const auto first = m_elements.begin() + offset;
        JsonArray array(std::make_move_iterator(first), std::make_move_iterator(m_elements.end()));
        m_elements.erase(first, m_elements.end());
        add(std::move(array));
    } else {
        JsonObject object;
        object.insertAll(m_members.data() + offset, m_members.data() + m_members.size());
        m_members.erase(m_members.begin() + offset, m_members.end());
        add(std::move(object));
    }
}

void JsonReader::open(bool isArray)
{
    m_open.push_back({isArray, isArray ? m_elements.size() : m_members.size()});
}

void JsonReader::checkDepth() const
{
    if (m_open.size() >= static_cast<std::size_t>(jsonMaximumDepth))
        m_source.fail("nesting too deep");
}

bool JsonReader::openArray()
{
    checkDepth();
    m_source.takeIf('[', "expected [");
    m_source.skipWhitespace();
    if (m_source.here() == ']') {
        m_source.take();
        add(JsonArray());
        return true;
    }
    if (!startsValue(m_source.here()))
        m_source.fail("expected ] or array definition");
    open(true);
    return false;
}

bool JsonReader::openObject()
{
    checkDepth();
    m_source.takeIf('{', "expected {");
    m_source.skipWhitespace();
    if (m_source.here() == '}') {
        m_source.take();
        add(JsonObject());
        return true;
    }
    if (m_source.here() != '"')
        m_source.fail("expected } or object definition");
    open(false);
    readKey();
    return false;
}

/// A key, and what stands between it and its value.
void JsonReader::readKey()
{
    m_source.skipWhitespace();
    m_members.push_back({std::string(readStringBytes()), JsonValue()});
    m_source.skipWhitespace();
    m_source.takeIf(':', "expected :");
    m_source.skipWhitespace();
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

void JsonReader::readNumber()
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
    if (isReal)
        add(convert<double>());
    else
        add(convert<std::int32_t>());
}

/// What the conversion leaves of the text is dropped with it: "1e3" is the integer 1.
template <class Number>
Number JsonReader::convert() const
{
    Number number{};
    if (std::from_chars(m_text.data(), m_text.data() + m_text.size(), number).ec != std::errc())
        m_source.fail("invalid number");
    return number;
}

std::string_view JsonReader::readStringBytes()
{
    m_source.takeIf('"', "expected string opening \"");
    const std::string_view plain = m_source.takePlainBytes();
    if (m_source.takeIfReady('"')) // most strings stand in the buffer as they are
        return plain;
    m_text = plain;
    while (m_source.here() != '"') {
        if (m_source.here() == JsonSource::end)
            m_source.fail("unexpected end of string");
        if (m_source.here() == '\\')
            readEscape();
        else
            m_text += m_source.takePlainBytes();
    }
    readStringEnd();
    return m_text;
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
