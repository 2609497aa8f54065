#include "HalvCore/string.h"

#include "HalvCore/widetext.h"

#include <algorithm>

namespace Halvorin::System {

namespace {

unsigned char folded(char byte)
{
    return static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte);
}

} // namespace

String::String(const char* text) : m_text(text ? text : "") {}

String::String(const char8_t* text) : m_text(text ? reinterpret_cast<const char*>(text) : "") {}

String::String(const char16_t* text) : m_text(text ? narrowText(std::u16string_view(text)) : std::string()) {}

String::String(const wchar_t* text) : m_text(text ? narrowText(std::wstring_view(text)) : std::string()) {}

String::String(std::string text) : m_text(std::move(text)) {}

String::String(const std::wstring& text) : m_text(narrowText(text)) {}

void String::assign(const std::wstring& text)
{
    m_text = narrowText(text);
}

String& String::operator+=(const String& other)
{
    m_text += other.m_text;
    return *this;
}

int String::compare(const String& other, CaseSensitivity sensitivity) const
{
    if (sensitivity == CaseSensitivity::sensitive)
        return m_text.compare(other.m_text);
    const auto order = std::lexicographical_compare_three_way(
        m_text.begin(), m_text.end(), other.m_text.begin(), other.m_text.end(),
        [](char left, char right) { return folded(left) <=> folded(right); });
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

} // namespace Halvorin::System
