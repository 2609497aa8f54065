#include "HalvCore/nativepath.h"

#include "HalvCore/widetext.h"

namespace Halvorin::System {

#if defined(_WIN32)

std::filesystem::path nativePath(std::string_view narrow)
{
    return std::filesystem::path(wideText(narrow));
}

std::filesystem::path nativePath(std::wstring_view wide)
{
    return std::filesystem::path(wide);
}

std::string narrowPathText(const std::filesystem::path& path)
{
    return narrowText(path.native());
}

std::wstring widePathText(const std::filesystem::path& path)
{
    return path.native();
}

#else

std::filesystem::path nativePath(std::string_view narrow)
{
    return std::filesystem::path(narrow);
}

std::filesystem::path nativePath(std::wstring_view wide)
{
    return std::filesystem::path(narrowText(wide));
}

std::string narrowPathText(const std::filesystem::path& path)
{
    return path.native();
}

std::wstring widePathText(const std::filesystem::path& path)
{
    return wideText(path.native());
}

#endif

} // namespace Halvorin::System
