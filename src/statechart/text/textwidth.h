#ifndef TEXTWIDTH_H
#define TEXTWIDTH_H

#include <cstddef>
#include <string_view>

/// Bytes of the UTF-8 character that a text starts with; a byte that starts none counts as one character.
std::size_t characterLength(std::string_view text);

/// Columns that a text takes, by the standard's estimate: two for East Asian wide characters and
/// pictographs, one for any other.
std::size_t textWidth(std::string_view text);

/// The longest leading piece of a text that takes no more columns than `width`.
std::string_view textWithin(std::string_view text, std::size_t width);

#endif
