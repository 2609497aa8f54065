#include "Python/pythonplatform.h"
#include "Python/registrysearch.h"
#include "Python/windowsregistry.h"

#include <cstdlib>
#include <system_error>

using Halvorin::System::FilePath;

namespace PythonPlatform {

std::vector<PythonInstallation> installations(const VersionOfFile& versionOf)
{
    WindowsRegistry registry;
    return searchRegistry(registry, versionOf);
}

FilePath languageServer(const FilePath& interpreter)
{
    FilePath server = interpreter.parentPath();
    server /= "Scripts";
    server /= "pyright-langserver.exe";
    std::error_code error;
    return std::filesystem::exists(server.toStdPath(), error) ? server : FilePath();
}

void prependToPath(const FilePath& folder)
{
    wchar_t* old = nullptr;
    std::size_t size = 0;
    if (_wdupenv_s(&old, &size, L"PATH") != 0)
        old = nullptr;
    const std::wstring setting = L"PATH=" + folder.toStdWString() + L";" + (old ? old : L"");
    std::free(old);
    _wputenv(setting.c_str());
}

std::vector<FilePath> librariesOf(const FilePath&, const std::string&)
{
    return {};
}

} // namespace PythonPlatform
