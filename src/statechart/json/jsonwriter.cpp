#include "statechart/json/jsonwriter.h"

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
    std::string text(const JsonValue& value)
    {
        writeValue(value);
        while (!m_open.empty()) {
            Open& open = m_open.back();
            if (open.array != nullptr)
                writeNextElement(open);
            else
                writeNextMember(open);
        }
        return std::move(m_text);
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
            m_text += '[';
            m_open.push_back({&value.asArray(), nullptr, 0});
            return;
        case JsonValue::Type::boolean:
            m_text += value.asBool() ? "true" : "false";
            return;
        case JsonValue::Type::null:
            m_text += "null";
            return;
        case JsonValue::Type::number:
            writeNumber(value.asNumber());
            return;
        case JsonValue::Type::object:
            m_text += '{';
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
            m_text += ']';
            m_open.pop_back();
            return;
        }
        if (open.next > 0)
            m_text += ',';
        writeValue((*open.array)[open.next++]); // may move what `open` refers to
    }

    void writeNextMember(Open& open)
    {
        if (open.next == open.object->size()) {
            m_text += '}';
            m_open.pop_back();
            return;
        }
        if (open.next > 0)
            m_text += ", ";
        const JsonMember& member = open.object->begin()[static_cast<std::ptrdiff_t>(open.next++)];
        m_text += '"';
        m_text += member.key;
        m_text += "\": ";
        writeValue(member.value); // may move what `open` refers to
    }

    void writeNumber(const JsonNumber& number)
    {
        switch (number.kind()) {
        case JsonNumber::Kind::integer:
            m_text += numberText(std::int64_t{number.integer()});
            return;
        case JsonNumber::Kind::real:
            m_text += formatText("{:#}", number.real());
            if (m_text.back() == '.')
                m_text += '0';
            return;
        }
        throw JsonException("invalid number type");
    }

    void writeString(const std::string& string)
    {
        m_text += '"';
        for (const char byte : string) {
            if (const char* const letter = escapeLetter(byte)) {
                m_text += '\\';
                m_text += *letter;
            } else {
                m_text += byte;
            }
        }
        m_text += '"';
    }

    std::string m_text;
    std::vector<Open> m_open;
};

} // namespace

void write(std::ostream& output, const JsonValue& value)
{
    const std::string text = toString(value);
    output.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string toString(const JsonValue& value)
{
    return Writer().text(value);
}
