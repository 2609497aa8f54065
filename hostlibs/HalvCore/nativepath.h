#ifndef HALVCORE_NATIVEPATH_H
#define HALVCORE_NATIVEPATH_H

#include <filesystem>
#include <string>
#include <string_view>

namespace Halvorin::System {

/// The one place that knows which text a path of the platform is made of: bytes here, wide characters on
/// Windows. std::filesystem's own conversions raise an error for a name that is not valid UTF-8.
std::filesystem::path nativePath(std::string_view narrow);
std::filesystem::path nativePath(std::wstring_view wide);
std::string narrowPathText(const std::filesystem::path& path);
std::wstring widePathText(const std::filesystem::path& path);

} // namespace Halvorin::System

#endif
