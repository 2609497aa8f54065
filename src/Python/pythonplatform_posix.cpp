#include "Python/interpreterfolders.h"
#include "Python/pythonplatform.h"

#include <cstdlib>
#include <string_view>
#include <system_error>
#include <unistd.h>

using Halvorin::System::FilePath;
namespace fs = std::filesystem;

namespace {

constexpr auto serverName = "pyright-langserver";

std::string environmentText(const char* name)
{
    const char* text = std::getenv(name);
    return text ? text : "";
}

bool isProgram(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

} // namespace

namespace PythonPlatform {

std::vector<PythonInstallation> installations(const VersionOfFile& versionOf)
{
    const InterpreterPlaces places{{"/usr/bin", "/usr/local/bin"},
                                   environmentText("PATH"),
                                   environmentText("HOME"),
                                   environmentText("PYENV_ROOT")};
    return listInterpreters(interpreterFolders(places), versionOf);
}

FilePath languageServer(const FilePath& interpreter)
{
    const fs::path beside = interpreter.toStdPath().parent_path() / serverName;
    if (isProgram(beside))
        return beside;
    for (const fs::path& folder : searchPathFolders(environmentText("PATH"))) {
        if (isProgram(folder / serverName))
            return folder / serverName;
    }
    return {};
}

void prependToPath(const FilePath& folder)
{
    const std::string old = environmentText("PATH");
    const std::string path = folder.toStdPath().native() + (old.empty() ? "" : ":" + old);
    ::setenv("PATH", path.c_str(), 1);
}

std::vector<FilePath> librariesOf(const FilePath& interpreter, const std::string& version)
{
    std::error_code error;
    const fs::path file = fs::canonical(interpreter.toStdPath(), error);
    if (error)
        return {};
    const fs::path root = file.parent_path().parent_path();
    const std::string name = "libpython" + version + ".so";
    for (const char* folder : {"lib", "lib64"}) {
        for (const std::string& library : {name + ".1.0", name}) {
            if (fs::is_regular_file(root / folder / library, error))
                return {FilePath(root / folder / library)};
        }
    }
    return {};
}

} // namespace PythonPlatform
