#ifndef HALVCORE_STRING_H
#define HALVCORE_STRING_H

#include "HalvCore/halvcoreexport.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Halvorin::System {

enum class CaseSensitivity
{
    insensitive,
    sensitive,
};

/// A text value in UTF-8. Narrow text is taken as UTF-8 and kept byte for byte; wide text is converted as
/// widetext.h says. Sizes count bytes. A null pointer gives the empty text.
class HALVCORE_EXPORT String
{
public:
    String() = default;
    String(const char* text);
    explicit String(const char8_t* text);
    String(const char16_t* text);
    String(const wchar_t* text);
    String(std::string text);
    String(const std::wstring& text);

    const char* data() const { return m_text.data(); }
    const char* c_str() const { return m_text.c_str(); }
    std::size_t size() const { return m_text.size(); }
    std::size_t length() const { return m_text.size(); }
    bool empty() const { return m_text.empty(); }

    /// Valid as long as this text is neither changed nor destroyed.
    std::string_view toStdStringView() const { return m_text; }
    std::string toLegacyUtf8() const { return m_text; }

    void assign(const std::wstring& text);
    String& operator+=(const String& other);

    /// Less than, equal to or greater than 0. Without regard to case, the letters A to Z stand for a to z;
    /// other characters are as they are.
    int compare(const String& other, CaseSensitivity sensitivity) const;

    friend bool operator==(const String&, const String&) = default;

private:
    std::string m_text;
};

} // namespace Halvorin::System

#endif
