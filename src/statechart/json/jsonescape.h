#ifndef JSONESCAPE_H
#define JSONESCAPE_H

#include <array>

/// One escape of a JSON string: the letter behind the backslash and the byte that both stand for. These are
/// read and written, and no others; there is no form by code point.
struct JsonEscape
{
    char letter;
    char byte;
};

inline constexpr std::array<JsonEscape, 8> jsonEscapes{{
    {'"', '"'},
    {'\\', '\\'},
    {'/', '/'},
    {'b', '\b'},
    {'f', '\f'},
    {'n', '\n'},
    {'r', '\r'},
    {'t', '\t'},
}};

/// The byte that a letter behind a backslash stands for, or null.
constexpr const char* unescaped(char letter)
{
    for (const JsonEscape& escape : jsonEscapes) {
        if (escape.letter == letter)
            return &escape.byte;
    }
    return nullptr;
}

/// The letter that escapes a byte, or null when the byte is written as it stands.
constexpr const char* escapeLetter(char byte)
{
    for (const JsonEscape& escape : jsonEscapes) {
        if (escape.byte == byte)
            return &escape.letter;
    }
    return nullptr;
}

#endif
