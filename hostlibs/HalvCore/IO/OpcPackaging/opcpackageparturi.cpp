#include "HalvCore/IO/OpcPackaging/opcpackageparturi.h"

#include "HalvCore/widetext.h"

namespace Halvorin::System::IO::OpcPackaging {

namespace {

char lowerCase(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool isSegmentCharacter(char byte)
{
    static constexpr std::string_view marks = "-._~!$&'()*+,;=:@";
    return (byte >= '0' && byte <= '9') || (lowerCase(byte) >= 'a' && lowerCase(byte) <= 'z') ||
           marks.find(byte) != std::string_view::npos;
}

int hexDigit(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char letter = lowerCase(byte);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// An encoded character stands at the start: one that could not stand there as it is, and no slash.
bool isEncodedCharacter(std::string_view text)
{
    if (text.size() < 3 || text[0] != '%' || hexDigit(text[1]) < 0 || hexDigit(text[2]) < 0)
        return false;
    const char byte = static_cast<char>(hexDigit(text[1]) * 16 + hexDigit(text[2]));
    static constexpr std::string_view unreservedMarks = "-._~";
    const bool unreserved =
        isSegmentCharacter(byte) && (hexDigit(byte) >= 0 || lowerCase(byte) != byte || byte >= 'a' ||
                                     unreservedMarks.find(byte) != std::string_view::npos);
    return byte != '/' && byte != '\\' && byte != '\0' && !unreserved;
}

bool isValidSegment(std::string_view segment)
{
    if (segment.empty() || segment.back() == '.')
        return false;
    for (std::size_t i = 0; i < segment.size(); ++i) {
        if (isSegmentCharacter(segment[i]))
            continue;
        if (!isEncodedCharacter(segment.substr(i)))
            return false;
        i += 2;
    }
    return true;
}

std::string withSlash(std::string name)
{
    if (name.empty() || name.front() != '/')
        name.insert(name.begin(), '/');
    return name;
}

} // namespace

OpcPackagePartUri::OpcPackagePartUri(std::wstring_view name) : m_name(withSlash(narrowText(name))) {}

OpcPackagePartUri OpcPackagePartUri::fromItemName(std::string_view itemName)
{
    return OpcPackagePartUri("/" + std::string(itemName));
}

bool OpcPackagePartUri::isValid() const
{
    std::string_view rest = itemName();
    while (true) {
        const std::size_t slash = rest.find('/');
        if (!isValidSegment(rest.substr(0, slash)))
            return false;
        if (slash == std::string_view::npos)
            return true;
        rest.remove_prefix(slash + 1);
    }
}

std::string OpcPackagePartUri::key() const
{
    std::string folded = m_name;
    for (char& byte : folded)
        byte = lowerCase(byte);
    return folded;
}

} // namespace Halvorin::System::IO::OpcPackaging
