#include "Python/pythonversion.h"

#include "HalvCore/numbertext.h"

#include <charconv>
#include <cmath>

using Halvorin::System::numberText;

std::string versionText(const std::optional<FileVersion>& version)
{
    return version ? numberText(version->major) + "." + numberText(version->minor) : std::string();
}

double versionNumber(const std::string& text)
{
    double value = 0; // stays where there is no number
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return std::floor(value * 100 + 1e-5);
}
