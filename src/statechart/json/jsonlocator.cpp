#include "statechart/json/jsonlocator.h"

#include "statechart/json/jsonescape.h"

#include <algorithm>

namespace {

class Locator
{
public:
    explicit Locator(std::string_view text) : m_text(text) {}

    JsonLocation locate(const JsonPath& path)
    {
        skipWhitespace();
        JsonLocation location;
        for (const JsonPathSegment& segment : path) {
            const std::size_t start = m_position;
            std::optional<JsonRange> key;
            if (!enter(segment, key)) {
                m_position = start;
                break;
            }
            location.key = key;
            ++location.matched;
        }
        location.value.offset = std::min(m_position, m_text.size());
        skipValue();
        location.value.length = m_position - location.value.offset;
        return location;
    }

private:
    char here() const { return m_position < m_text.size() ? m_text[m_position] : '\0'; }

    void skipWhitespace()
    {
        m_position = std::min(m_text.find_first_not_of(" \t\r\n", m_position), m_text.size());
    }

    /// Goes from the start of a value to the start of the member or element that `segment` names.
    bool enter(const JsonPathSegment& segment, std::optional<JsonRange>& key)
    {
        if (const auto* index = std::get_if<std::size_t>(&segment))
            return here() == '[' && enterElement(*index);
        return here() == '{' && enterMember(std::get<std::string>(segment), key);
    }

    bool enterElement(std::size_t index)
    {
        startContainer();
        for (std::size_t count = 0; here() != ']' && m_position < m_text.size(); ++count) {
            if (count == index)
                return true;
            skipToNext();
        }
        return false;
    }

    bool enterMember(std::string_view name, std::optional<JsonRange>& key)
    {
        startContainer();
        while (here() == '"') {
            const std::size_t start = m_position;
            const bool found = takeString() == name;
            key = JsonRange{start, m_position - start};
            skipWhitespace();
            if (here() != ':')
                return false;
            ++m_position;
            skipWhitespace();
            if (found)
                return true;
            skipToNext();
        }
        return false;
    }

    void startContainer()
    {
        ++m_position;
        skipWhitespace();
    }

    void skipToNext()
    {
        skipValue();
        skipWhitespace();
        if (here() == ',')
            ++m_position;
        skipWhitespace();
    }

    /// Leaves the position behind the last byte of the value that starts at it.
    void skipValue()
    {
        std::size_t depth = 0;
        do {
            switch (here()) {
            case '"':
                takeString();
                break;
            case '[':
            case '{':
                ++depth;
                ++m_position;
                break;
            case ']':
            case '}':
                depth -= depth > 0 ? 1 : 0;
                ++m_position;
                break;
            case ',':
            case ':':
            case ' ':
            case '\t':
            case '\r':
            case '\n':
                ++m_position;
                break;
            default:
                m_position = std::min(m_text.find_first_of("\"[]{},: \t\r\n", m_position), m_text.size());
                break;
            }
        } while (depth > 0 && m_position < m_text.size());
        m_position = std::min(m_position, m_text.size());
    }

    std::string takeString()
    {
        std::string decoded;
        ++m_position;
        while (m_position < m_text.size() && m_text[m_position] != '"') {
            char byte = m_text[m_position++];
            if (byte == '\\' && m_position < m_text.size()) {
                const char* const meant = unescaped(m_text[m_position++]);
                byte = meant != nullptr ? *meant : byte;
            }
            decoded += byte;
        }
        m_position = std::min(m_position + 1, m_text.size());
        return decoded;
    }

    std::string_view m_text;
    std::size_t m_position = 0;
};

} // namespace

JsonLocation locateJsonValue(std::string_view document, const JsonPath& path)
{
    return Locator(document).locate(path);
}

std::size_t offsetOfStringByte(std::string_view document, const JsonRange& string, std::size_t decodedOffset)
{
    if (string.length < 2 || document[string.offset] != '"')
        return string.offset;
    const std::size_t end = string.end() - 1;
    std::size_t offset = string.offset + 1;
    for (std::size_t count = 0; count < decodedOffset && offset < end; ++count)
        offset += document[offset] == '\\' ? 2 : 1;
    return std::min(offset, end);
}
