#include "statechart/json/jsonwriter.h"

#include "statechart/json/blocktext.h"
#include "statechart/json/bytesearch.h"
#include "statechart/json/jsonescape.h"
#include "statechart/text/format.h"
#include "statechart/text/numbertext.h"

#include <ostream>

namespace {

/// Writes into a text. Containers that are not written to their end stand in a list, so that depth takes no
/// stack.
class Writer
{
public:
    const BlockText& text(const JsonValue& value)
    {
        writeValue(value);
        while (!m_open.empty()) {
            Open& open = m_open.back();
            if (open.array != nullptr)
                writeNextElement(open);
            else
                writeNextMember(open);
        }
        return m_text;
    }

private:
    struct Open
    {
        const JsonArray* array;
        const JsonObject* object;
        std::size_t next;
    };

    void writeValue(const JsonValue& value)
    {
        switch (value.type()) {
        case JsonValue::Type::array:
            m_text.add('[');
            m_open.push_back({&value.asArray(), nullptr, 0});
            return;
        case JsonValue::Type::boolean:
            m_text.add(std::string_view(value.asBool() ? "true" : "false"));
            return;
        case JsonValue::Type::null:
            m_text.add(std::string_view("null"));
            return;
        case JsonValue::Type::number:
            writeNumber(value.asNumber());
            return;
        case JsonValue::Type::object:
            m_text.add('{');
            m_open.push_back({nullptr, &value.asObject(), 0});
            return;
        case JsonValue::Type::string:
            writeString(value.asString());
            return;
        }
        throw JsonException("unknown JSON type");
    }

    void writeNextElement(Open& open)
    {
        if (open.next == open.array->size()) {
            m_text.add(']');
            m_open.pop_back();
            return;
        }
        if (open.next > 0)
            m_text.add(',');
        writeValue((*open.array)[open.next++]); // may move what `open` refers to
    }

    void writeNextMember(Open& open)
    {
        if (open.next == open.object->size()) {
            m_text.add('}');
            m_open.pop_back();
            return;
        }
        if (open.next > 0)
            m_text.add(std::string_view(", "));
        const JsonMember& member = open.object->begin()[static_cast<std::ptrdiff_t>(open.next++)];
        m_text.add('"');
        m_text.add(member.key);
        m_text.add(std::string_view("\": "));
        writeValue(member.value); // may move what `open` refers to
    }

    void writeNumber(const JsonNumber& number)
    {
        switch (number.kind()) {
        case JsonNumber::Kind::integer:
            m_text.add(numberText(std::int64_t{number.integer()}));
            return;
        case JsonNumber::Kind::real:
            const std::string real = formatText("{:#}", number.real());
            m_text.add(real);
            if (real.back() == '.')
                m_text.add('0');
            return;
        }
        throw JsonException("invalid number type");
    }

    void writeString(std::string_view string)
    {
        constexpr std::size_t pieceSize = 1024;

        m_text.add('"');
        for (; string.size() > pieceSize; string.remove_prefix(pieceSize))
            writeEscaped(string.substr(0, pieceSize));
        writeEscaped(string);
        m_text.add('"');
    }

    /// Copies eight bytes at a time, and then steps back to the first of them that may need an escape.
    void writeEscaped(std::string_view string)
    {
        const char* next = string.data();
        const char* const end = next + string.size();
        char* to = m_text.room(2 * string.size() + 8);
        while (next != end) {
            if constexpr (std::endian::native == std::endian::little) {
                std::uint64_t word = 0;
                if (end - next >= 8) {
                    std::memcpy(&word, next, 8);
                    std::memcpy(to, &word, 8);
                    const std::uint64_t found = bytesBelow(word, 0x20) | bytesEqual(word, '"') |
                                                bytesEqual(word, '\\') | bytesEqual(word, '/');
                    const int plain = found == 0 ? 8 : std::countr_zero(found) / 8;
                    next += plain;
                    to += plain;
                    if (found == 0)
                        continue;
                }
            }
            const char letter = escapeLetter(*next);
            if (letter != '\0')
                *to++ = '\\';
            *to++ = letter != '\0' ? letter : *next;
            ++next;
        }
        m_text.filledTo(to);
    }

    BlockText m_text;
    std::vector<Open> m_open;
};

} // namespace

void write(std::ostream& output, const JsonValue& value)
{
    Writer writer;
    writer.text(value).forEachPiece([&](std::string_view piece) {
        output.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    });
}

std::string toString(const JsonValue& value)
{
    Writer writer;
    const BlockText& text = writer.text(value);
    std::string whole;
    whole.reserve(text.size());
    text.forEachPiece([&](std::string_view piece) { whole += piece; });
    return whole;
}
