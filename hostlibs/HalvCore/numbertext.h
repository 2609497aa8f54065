#ifndef HALVCORE_NUMBERTEXT_H
#define HALVCORE_NUMBERTEXT_H

#include <array>
#include <charconv>
#include <string>

namespace Halvorin::System {

/// The text of a number as the standard's to_chars words it: locales have no say, and a double has the
/// shortest text that reads back as the same value.
template <class Number>
std::string numberText(Number value)
{
    std::array<char, 64> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), result.ptr};
}

} // namespace Halvorin::System

#endif
