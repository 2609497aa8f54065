#include "HalvCore/widetext.h"

#include <array>

namespace Halvorin::System {

namespace {

constexpr char32_t replacement = 0xfffd;
constexpr char32_t escapeBase = 0xdc00;

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xd800 && unit <= 0xdbff;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xdc00 && unit <= 0xdfff;
}

bool isEscapedByte(char32_t unit)
{
    return unit >= escapeBase + 0x80 && unit <= escapeBase + 0xff;
}

void appendUtf8(std::string& text, char32_t character)
{
    const auto byte = [&text](char32_t value) { text.push_back(static_cast<char>(value)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xc0 | (character >> 6));
        byte(0x80 | (character & 0x3f));
    } else if (character < 0x10000) {
        byte(0xe0 | (character >> 12));
        byte(0x80 | ((character >> 6) & 0x3f));
        byte(0x80 | (character & 0x3f));
    } else {
        byte(0xf0 | (character >> 18));
        byte(0x80 | ((character >> 12) & 0x3f));
        byte(0x80 | ((character >> 6) & 0x3f));
        byte(0x80 | (character & 0x3f));
    }
}

void appendWide(std::wstring& text, char32_t character)
{
    if (sizeof(wchar_t) == 2 && character > 0xffff) {
        text.push_back(static_cast<wchar_t>(0xd800 + ((character - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xdc00 + ((character - 0x10000) & 0x3ff)));
    } else {
        text.push_back(static_cast<wchar_t>(character));
    }
}

template <class Unit>
std::string narrowed(std::basic_string_view<Unit> units)
{
    std::string text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto unit = static_cast<char32_t>(units[i]);
        const char32_t next = i + 1 < units.size() ? static_cast<char32_t>(units[i + 1]) : 0;
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendUtf8(text, 0x10000 + ((unit - 0xd800) << 10) + (next - 0xdc00));
            ++i;
        } else if (isEscapedByte(unit)) {
            text.push_back(static_cast<char>(unit - escapeBase));
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit) || unit > 0x10ffff) {
            appendUtf8(text, replacement);
        } else {
            appendUtf8(text, unit);
        }
    }
    return text;
}

} // namespace

std::optional<char32_t> nextCharacter(std::string_view utf8, std::size_t& position)
{
    struct Form
    {
        unsigned char mask;
        unsigned char lead;
        std::size_t length;
        char32_t smallest; // what a shorter form could say is overlong
    };
    static constexpr std::array<Form, 4> forms{{
        {0x80, 0x00, 1, 0x0},
        {0xe0, 0xc0, 2, 0x80},
        {0xf0, 0xe0, 3, 0x800},
        {0xf8, 0xf0, 4, 0x10000},
    }};

    const auto lead = static_cast<unsigned char>(utf8[position]);
    for (const Form& form : forms) {
        if ((lead & form.mask) != form.lead)
            continue;
        if (utf8.size() - position < form.length)
            return std::nullopt;
        char32_t character = static_cast<unsigned char>(lead & ~form.mask);
        for (std::size_t i = 1; i < form.length; ++i) {
            const auto byte = static_cast<unsigned char>(utf8[position + i]);
            if ((byte & 0xc0) != 0x80)
                return std::nullopt;
            character = (character << 6) | (byte & 0x3f);
        }
        const bool surrogate = isHighSurrogate(character) || isLowSurrogate(character);
        if (character < form.smallest || character > 0x10ffff || surrogate)
            return std::nullopt;
        position += form.length;
        return character;
    }
    return std::nullopt;
}

std::wstring wideText(std::string_view narrow)
{
    std::wstring wide;
    wide.reserve(narrow.size());
    std::size_t position = 0;
    while (position < narrow.size()) {
        if (const auto character = nextCharacter(narrow, position)) {
            appendWide(wide, *character);
        } else {
            appendWide(wide, escapeBase + static_cast<unsigned char>(narrow[position]));
            ++position;
        }
    }
    return wide;
}

std::string narrowText(std::wstring_view wide)
{
    return narrowed(wide);
}

std::string narrowText(std::u16string_view text)
{
    return narrowed(text);
}

} // namespace Halvorin::System
