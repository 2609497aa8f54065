#ifndef CHARACTERCLASSES_H
#define CHARACTERCLASSES_H

/// What the classes of the expressions stand for, character by character. They speak of ASCII, but for "\h".
namespace Halvorin::Text {

/// "\s"
constexpr bool isSpace(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// "[^\S\r\n]"
constexpr bool isBlank(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f';
}

/// "\h"
constexpr bool isHorizontalSpace(char16_t c)
{
    if (c < 0x80)
        return c == u' ' || c == u'\t';
    return c == 0xA0 || c == 0x1680 || c == 0x180E || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

/// What "\R" takes for the end of a line, and "." does not: any but the line feed.
constexpr bool isOtherLineEnd(char16_t c)
{
    return (c >= u'\v' && c <= u'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

/// What "\R" takes.
constexpr bool isLineEnd(char16_t c)
{
    return c == u'\n' || isOtherLineEnd(c);
}

constexpr bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

constexpr bool isUpperLetter(char16_t c)
{
    return c >= u'A' && c <= u'Z';
}

constexpr bool isLowerLetter(char16_t c)
{
    return c >= u'a' && c <= u'z';
}

/// "\w"
constexpr bool isWord(char16_t c)
{
    return isLowerLetter(c) || isUpperLetter(c) || isDigit(c) || c == u'_';
}

} // namespace Halvorin::Text

#endif
