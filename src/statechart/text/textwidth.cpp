#include "statechart/text/textwidth.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

struct CodePoints
{
    std::uint32_t first;
    std::uint32_t last;
};

// The ranges that the standard counts as two columns wide.
constexpr std::array<CodePoints, 14> wideCodePoints{{
    {0x1100, 0x115f},
    {0x2329, 0x232a},
    {0x2e80, 0x303e},
    {0x3040, 0xa4cf},
    {0xac00, 0xd7a3},
    {0xf900, 0xfaff},
    {0xfe10, 0xfe19},
    {0xfe30, 0xfe6f},
    {0xff00, 0xff60},
    {0xffe0, 0xffe6},
    {0x1f300, 0x1f64f},
    {0x1f900, 0x1f9ff},
    {0x20000, 0x2fffd},
    {0x30000, 0x3fffd},
}};

struct Character
{
    std::uint32_t codePoint;
    std::size_t length;
};

Character firstCharacter(std::string_view text)
{
    const auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(text[index]); };
    const std::uint8_t lead = byteAt(0);
    const std::size_t length = lead >= 0xf0 && lead < 0xf8 ? 4 : lead >= 0xe0 ? 3 : lead >= 0xc0 ? 2 : 1;
    if (length == 1 || lead >= 0xf8 || length > text.size())
        return {lead, 1};
    std::uint32_t codePoint = lead & (0xffu >> (length + 1));
    for (std::size_t index = 1; index < length; ++index) {
        if ((byteAt(index) & 0xc0u) != 0x80u)
            return {lead, 1};
        codePoint = (codePoint << 6) | (byteAt(index) & 0x3fu);
    }
    return {codePoint, length};
}

std::size_t columnsOf(std::uint32_t codePoint)
{
    const bool wide = std::any_of(wideCodePoints.begin(), wideCodePoints.end(), [&](const CodePoints& range) {
        return codePoint >= range.first && codePoint <= range.last;
    });
    return wide ? 2 : 1;
}

} // namespace

std::size_t characterLength(std::string_view text)
{
    return text.empty() ? 0 : firstCharacter(text).length;
}

std::size_t textWidth(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        width += columnsOf(character.codePoint);
        text.remove_prefix(character.length);
    }
    return width;
}

std::string_view textWithin(std::string_view text, std::size_t width)
{
    std::size_t taken = 0;
    std::size_t columns = 0;
    while (taken < text.size()) {
        const Character character = firstCharacter(text.substr(taken));
        columns += columnsOf(character.codePoint);
        if (columns > width)
            break;
        taken += character.length;
    }
    return text.substr(0, taken);
}
