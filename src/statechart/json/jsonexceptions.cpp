#include "statechart/json/jsonexceptions.h"

#include "statechart/text/format.h"

#include <array>
#include <istream>
#include <streambuf>

namespace {

// In the order of JsonTypeException::Code.
constexpr std::array<const char*, 5> typeTexts{
    "index out of bounds",         "invalid cast", "invalid key", "json value is not an array",
    "json value is not an object",
};

const char* textOf(JsonTypeException::Code code)
{
    const auto index = static_cast<std::size_t>(code);
    return index < typeTexts.size() ? typeTexts[index] : "unknown error";
}

} // namespace

JsonTypeException::JsonTypeException(Code code) : JsonException(textOf(code)), m_code(code) {}

JsonReadException::JsonReadException(std::string_view reason, std::uint64_t position)
    : JsonReadException(formatText("invalid JSON '{}' at position {}", reason, position), reason, position)
{}

JsonReadException::JsonReadException(const std::string& text, std::string_view reason, std::uint64_t position)
    : JsonException(text), m_reason(reason), m_position(position)
{}

JsonLineNumberReadException::JsonLineNumberReadException(const JsonReadException& failure,
                                                         std::istream& stream)
    : JsonLineNumberReadException(failure, placeOf(failure.position(), stream))
{}

JsonLineNumberReadException::JsonLineNumberReadException(const JsonReadException& failure, Place place)
    : JsonReadException(formatText("invalid JSON '{}' at line {} character {}", failure.reason(), place.line,
                                   place.character),
                        failure.reason(), failure.position()),
      m_line(place.line), m_character(place.character)
{}

JsonLineNumberReadException::Place JsonLineNumberReadException::placeOf(std::uint64_t position,
                                                                        std::istream& stream)
{
    using Traits = std::istream::traits_type;

    Place place;
    std::streambuf* const buffer = stream.rdbuf();
    if (buffer == nullptr)
        return place;
    stream.clear();
    buffer->pubseekpos(0, std::ios_base::in);
    bool behindCarriageReturn = false;
    for (std::uint64_t offset = 0; offset < position; ++offset) {
        const Traits::int_type next = buffer->sbumpc();
        if (Traits::eq_int_type(next, Traits::eof()))
            break;
        const char byte = Traits::to_char_type(next);
        if (byte == '\r' || (byte == '\n' && !behindCarriageReturn)) {
            ++place.line;
            place.character = 1;
        } else if (byte != '\n') {
            ++place.character;
        }
        behindCarriageReturn = byte == '\r';
    }
    return place;
}
