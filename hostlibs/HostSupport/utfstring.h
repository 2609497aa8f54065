#ifndef HOSTSUPPORT_UTFSTRING_H
#define HOSTSUPPORT_UTFSTRING_H

#include "HalvCore/widetext.h"

#include <string>
#include <string_view>

/// Converts between the narrow text of the system's code page, which is UTF-8 here, and wide text. Bytes
/// that are not UTF-8 survive the way there and back (widetext.h).
class UTFString
{
public:
    explicit UTFString(const char* narrow) : m_narrow(narrow ? narrow : "") {}
    explicit UTFString(const wchar_t* wide)
        : m_narrow(wide ? Halvorin::System::narrowText(std::wstring_view(wide)) : std::string())
    {}

    const std::string& get() const { return m_narrow; }
    std::wstring getWide() const { return Halvorin::System::wideText(m_narrow); }

private:
    std::string m_narrow;
};

#endif
