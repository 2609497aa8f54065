#ifndef HALVCORE_WIDETEXT_H
#define HALVCORE_WIDETEXT_H

#include "HalvCore/halvcoreexport.h"

#include <optional>
#include <string>
#include <string_view>

namespace Halvorin::System {

/// Narrow text is UTF-8 by convention and any bytes in fact: a file name need not be valid UTF-8. Each byte
/// that belongs to no valid sequence becomes a lone surrogate, U+DC00 plus the byte, and narrowText() turns
/// it back into that byte: going wide and back gives the same bytes, whatever they were.
HALVCORE_EXPORT std::wstring wideText(std::string_view narrow);

/// The way back. Surrogate pairs are joined; what is no character (another lone surrogate, a number above
/// U+10FFFF) becomes U+FFFD.
HALVCORE_EXPORT std::string narrowText(std::wstring_view wide);
HALVCORE_EXPORT std::string narrowText(std::u16string_view text);

/// The character that starts at `position`, which moves behind it; nothing, and no move, where the bytes
/// are not valid UTF-8 (overlong forms and surrogates among them).
HALVCORE_EXPORT std::optional<char32_t> nextCharacter(std::string_view utf8, std::size_t& position);

} // namespace Halvorin::System

#endif
