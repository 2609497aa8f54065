#ifndef HOSTSUPPORT_OPTIONTEXT_H
#define HOSTSUPPORT_OPTIONTEXT_H

#include "HalvCore/numbertext.h"
#include "HostSupport/ystring.h"

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

/// Options are stored as texts: "true" and "false", numbers as the standard's to_chars words them, strings
/// as they stand.
namespace HostSupport {

inline std::string optionText(bool value)
{
    return value ? "true" : "false";
}

template <class Number>
std::string optionText(Number value)
{
    return Halvorin::System::numberText(value);
}

/// The value that a text stands for; nothing when it stands for none of that type.
template <class T>
std::optional<T> optionFromText(const std::string& text)
{
    T value{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    return result.ec == std::errc() && result.ptr == end ? std::optional(value) : std::nullopt;
}

template <>
inline std::optional<bool> optionFromText<bool>(const std::string& text)
{
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

template <>
inline std::optional<YString> optionFromText<YString>(const std::string& text)
{
    return YString(text);
}

} // namespace HostSupport

#endif
