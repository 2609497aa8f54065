#ifndef HOSTSUPPORT_YSTRING_H
#define HOSTSUPPORT_YSTRING_H

#include "HalvCore/widetext.h"

#include <string>
#include <string_view>

/// The older text value of the host: narrow text inside, kept byte for byte. A null pointer gives the empty
/// text.
class YString
{
public:
    YString() = default;
    YString(const char* text) : m_text(text ? text : "") {}
    YString(std::string text) : m_text(std::move(text)) {}
    YString(const wchar_t* text)
        : m_text(text ? Halvorin::System::narrowText(std::wstring_view(text)) : std::string())
    {}

    /// Valid as long as this text is neither changed nor destroyed.
    const char* tocs() const { return m_text.c_str(); }

    friend bool operator==(const YString&, const YString&) = default;

private:
    std::string m_text;
};

#endif
