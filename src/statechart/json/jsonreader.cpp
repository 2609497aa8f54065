#include "statechart/json/jsonreader.h"

#include "statechart/json/jsonescape.h"

#include <charconv>
#include <istream>
#include <streambuf>
#include <utility>

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

/// The bytes of a stream, taken from its buffer, and how many of them were taken.
class Source
{
public:
    explicit Source(std::istream& input) : m_buffer(input.rdbuf())
    {
        if (m_buffer == nullptr)
            return;
        const std::streamoff start = m_buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
        m_position = start < 0 ? 0 : static_cast<std::uint64_t>(start);
        m_here = m_buffer->sgetc();
    }

    static constexpr int end = std::char_traits<char>::eof();

    /// The next byte as an unsigned one, or `end`.
    int here() const { return m_here; }

    int take()
    {
        ++m_position;
        return std::exchange(m_here, m_buffer->snextc());
    }

    void skipWhitespace()
    {
        while (m_here == ' ' || m_here == '\n' || m_here == '\r' || m_here == '\t')
            take();
    }

    void takeIf(int byte, const char* reason)
    {
        if (m_here != byte)
            fail(reason);
        take();
    }

    [[noreturn]] void fail(const char* reason) const { throw JsonReadException(reason, m_position); }

private:
    std::streambuf* m_buffer;
    std::uint64_t m_position = 0;
    int m_here = end;
};

/// Reads one value. Containers that are not closed yet stand in a list of their own, so that depth takes no
/// stack.
class Reader
{
public:
    explicit Reader(std::istream& input) : m_source(input) {}

    JsonValue read()
    {
        for (;;) {
            // Either a whole value was read, or a container was opened that expects its first member.
            JsonValue value;
            if (!readValue(value))
                continue;
            m_source.skipWhitespace();
            while (!m_open.empty() && endsContainer(value))
                m_source.skipWhitespace();
            if (m_open.empty())
                return value;
        }
    }

private:
    struct Open
    {
        JsonValue container;
        std::string key; // of the member that is being read
    };

    /// @return false when it opened an array or an object that is not empty.
    bool readValue(JsonValue& value)
    {
        m_source.skipWhitespace();
        switch (m_source.here()) {
        case '"':
            value = JsonValue(readString());
            return true;
        case '[':
            return openArray(value);
        case '{':
            return openObject(value);
        case 'f':
        case 't':
            value = JsonValue(readBoolean());
            return true;
        case 'n':
            readLiteral("null", "expected 'null'");
            return true;
        default:
            if (!startsValue(m_source.here()))
                m_source.fail("expected value");
            value = readNumber();
            return true;
        }
    }

    void checkDepth() const
    {
        if (m_open.size() >= static_cast<std::size_t>(jsonMaximumDepth))
            m_source.fail("nesting too deep");
    }

    bool openArray(JsonValue& value)
    {
        checkDepth();
        m_source.takeIf('[', "expected [");
        m_source.skipWhitespace();
        if (m_source.here() == ']') {
            m_source.take();
            value = JsonValue(JsonArray());
            return true;
        }
        if (!startsValue(m_source.here()))
            m_source.fail("expected ] or array definition");
        m_open.push_back({JsonValue(JsonArray()), {}});
        return false;
    }

    bool openObject(JsonValue& value)
    {
        checkDepth();
        m_source.takeIf('{', "expected {");
        m_source.skipWhitespace();
        if (m_source.here() == '}') {
            m_source.take();
            value = JsonValue(JsonObject());
            return true;
        }
        if (m_source.here() != '"')
            m_source.fail("expected } or object definition");
        m_open.push_back({JsonValue(JsonObject()), {}});
        readKey();
        return false;
    }

    void readKey()
    {
        m_open.back().key = readString();
        m_source.skipWhitespace();
        m_source.takeIf(':', "expected :");
    }

    /// Puts a value into the innermost open container. If that is complete, it becomes the value.
    /// @return false when the container goes on.
    bool endsContainer(JsonValue& value)
    {
        Open& open = m_open.back();
        const bool isArray = open.container.isArray();
        if (isArray)
            open.container.asArray().push_back(std::move(value));
        else
            open.container.asObject().insert(std::move(open.key),
                                             std::move(value)); // the first of a key stays
        if (m_source.here() == ',') {
            m_source.take();
            if (!isArray) {
                m_source.skipWhitespace();
                readKey();
            }
            return false;
        }
        if (isArray)
            m_source.takeIf(']', "expected ',' or ']'");
        else
            m_source.takeIf('}', "expected ',' or '}'");
        value = std::move(open.container);
        m_open.pop_back();
        return true;
    }

    bool readBoolean()
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

    void readLiteral(std::string_view word, const char* reason)
    {
        for (const char byte : word)
            m_source.takeIf(byte, reason);
    }

    void takeDigits()
    {
        while (isDigit(m_source.here()))
            takeIntoText();
    }

    void takeIntoText() { m_text += static_cast<char>(m_source.take()); }

    JsonValue readNumber()
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
    JsonValue convert(Number number) const
    {
        if (std::from_chars(m_text.data(), m_text.data() + m_text.size(), number).ec != std::errc())
            m_source.fail("invalid number");
        return JsonValue(number);
    }

    std::string readString()
    {
        m_source.takeIf('"', "expected string opening \"");
        m_text.clear();
        while (m_source.here() != '"' && m_source.here() != Source::end) {
            if (m_source.here() == '\\')
                readEscape();
            else
                takeIntoText();
        }
        if (m_source.here() == Source::end)
            m_source.fail("unexpected end of string");
        m_source.takeIf('"', "expected closing string \"");
        return m_text;
    }

    void readEscape()
    {
        m_source.take();
        if (m_source.here() == Source::end)
            m_source.fail("unexpected end of string");
        const char* const byte = unescaped(static_cast<char>(m_source.here()));
        if (byte == nullptr)
            m_source.fail("unexepected escaped character");
        m_text += *byte;
        m_source.take();
    }

    Source m_source;
    std::vector<Open> m_open;
    std::string m_text; // of the token that is being read
};

} // namespace

JsonDocument::JsonDocument(JsonValue value) : m_value(std::move(value))
{
    if (!m_value.isArray() && !m_value.isObject())
        throw JsonException("invalid type for JSON document");
}

JsonDocument readDocument(std::istream& input)
{
    return JsonDocument(Reader(input).read());
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
