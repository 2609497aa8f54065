#ifndef HALVCORE_FILEPATH_H
#define HALVCORE_FILEPATH_H

#include "HalvCore/halvcoreexport.h"
#include "HalvCore/string.h"

#include <compare>
#include <cstddef>
#include <filesystem>
#include <string>

namespace Halvorin::System {

/// A path. The platform's own text stands underneath, so that a name of any bytes reaches the file system
/// as it came; the wide form of such a name is made as widetext.h says and leads back to the same bytes.
///
///     FilePath path(argument);
///     path /= "deviceDefinition.json";
///     std::ifstream stream(path.toStdPath());
class HALVCORE_EXPORT FilePath
{
public:
    FilePath() = default;
    FilePath(const char* text);
    FilePath(const std::string& text);
    FilePath(const String& text);
    FilePath(const wchar_t* text);
    FilePath(const std::wstring& text);
    FilePath(std::filesystem::path path);

    /// In UTF-8, or the bytes that the name has.
    String toString() const;
    std::wstring toStdWString() const { return m_wide; }
    const std::filesystem::path& toStdPath() const { return m_path; }
    operator std::filesystem::path() const { return m_path; }

    /// The wide text, valid until this path changes, and its size in wide characters.
    const wchar_t* c_str() const { return m_wide.c_str(); }
    std::size_t size() const { return m_wide.size(); }
    bool empty() const { return m_wide.empty(); }

    FilePath parentPath() const;

    /// Appends a component with one separator between; an absolute component replaces the path.
    FilePath& operator/=(const FilePath& component);

    friend bool operator==(const FilePath& left, const FilePath& right)
    {
        return left.m_path == right.m_path;
    }
    friend std::strong_ordering operator<=>(const FilePath& left, const FilePath& right)
    {
        return left.m_path <=> right.m_path;
    }

private:
    std::filesystem::path m_path;
    std::wstring m_wide;
};

} // namespace Halvorin::System

#endif
