#include "HalvCore/filepath.h"

#include "HalvCore/nativepath.h"

namespace Halvorin::System {

FilePath::FilePath(const char* text) : FilePath(nativePath(std::string_view(text ? text : ""))) {}

FilePath::FilePath(const std::string& text) : FilePath(nativePath(std::string_view(text))) {}

FilePath::FilePath(const wchar_t* text) : FilePath(nativePath(std::wstring_view(text ? text : L""))) {}

FilePath::FilePath(const String& text) : FilePath(nativePath(text.toStdStringView())) {}

FilePath::FilePath(const std::wstring& text) : FilePath(nativePath(std::wstring_view(text))) {}

FilePath::FilePath(std::filesystem::path path) : m_path(std::move(path)), m_wide(widePathText(m_path)) {}

String FilePath::toString() const
{
    return narrowPathText(m_path);
}

FilePath FilePath::parentPath() const
{
    return m_path.parent_path();
}

FilePath& FilePath::operator/=(const FilePath& component)
{
    m_path /= component.m_path;
    m_wide = widePathText(m_path);
    return *this;
}

} // namespace Halvorin::System
