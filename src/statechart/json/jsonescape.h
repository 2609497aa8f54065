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

inline constexpr auto jsonEscapeLetters = [] {
    std::array<char, 256> letters{};
    for (const JsonEscape& escape : jsonEscapes)
        letters[static_cast<unsigned char>(escape.byte)] = escape.letter;
    return letters;
}();

/// The letter that escapes a byte, or '\0' when the byte is written as it stands.
constexpr char escapeLetter(char byte)
{
    return jsonEscapeLetters[static_cast<unsigned char>(byte)];
}

#endif
