#include "Python/pythonplugins.h"

#include "HalvCore/exception.h"
#include "Python/pythonlog.h"
#include "Python/pythonplatform.h"
#include "Python/pythonversion.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

using Halvorin::System::Exception;
using Halvorin::System::FilePath;
namespace fs = std::filesystem;

namespace {

constexpr const char* pluginNames[] = {"EmbeddedPython", "PVXEmbeddedPython"};
constexpr const char* unloadablePluginAdvice =
    ".\r\n\r\nCheck selected Python version is correctly installed";
constexpr const char* inconsistentPlugin =
    "Python DLL Version stamp is not consistent with binary content. This is a build problem - head.rc and "
    ".pro file both need to store the same version";

/// "libEmbeddedPython.so" and "EmbeddedPython.dll" are modules of the plug-in "EmbeddedPython".
bool isModuleOf(std::string_view module, std::string_view plugin)
{
    if (module.starts_with("lib"))
        module.remove_prefix(3);
    return module.substr(0, module.find('.')) == plugin;
}

void prepareSecondTry(PythonMachine& machine, const PythonExecutable& executable)
{
    const FilePath interpreter = executable.pythonPath;
    PythonPlatform::prependToPath(interpreter.parentPath());
    for (const FilePath& file : machine.librariesOf(interpreter, executable.version)) {
        const auto library = machine.library(file);
        if (!library->load())
            PythonLog::diagnostic(library->reason());
    }
}

bool loadInTwoTries(PythonMachine& machine, PluginLibrary& library, const PythonExecutable& executable)
{
    if (library.load())
        return true;
    PythonLog::diagnostic(library.reason());
    if (executable.pythonPath.empty())
        return false;
    prepareSecondTry(machine, executable);
    if (library.load())
        return true;
    PythonLog::diagnostic(library.reason());
    return false;
}

void checkStamp(PythonMachine& machine, PluginLibrary& library)
{
    using GetVersion = int (*)();
    const auto getVersion = reinterpret_cast<GetVersion>(library.resolve("dyn_GetPythonVersion"));
    if (getVersion && getVersion() != versionNumber(machine.pluginStamp(library.file())))
        throw Exception(inconsistentPlugin);
}

} // namespace

std::vector<std::string> pluginVersions(PythonMachine& machine)
{
    std::vector<std::string> versions;
    const fs::path folder = machine.pluginsFolder();
    if (!fs::exists(folder))
        return versions;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file())
            continue;
        std::string version = machine.pluginStamp(entry.path());
        if (!version.empty())
            versions.push_back(std::move(version));
    }
    return versions;
}

bool isPluginLoaded(PythonMachine& machine)
{
    return std::ranges::any_of(machine.loadedModules(),
                               [](const std::string& module) { return isModuleOf(module, pluginNames[0]); });
}

void loadPlugins(PythonMachine& machine, const PythonExecutable& executable)
{
    for (const char* name : pluginNames) {
        FilePath file = machine.pluginsFolder();
        file /= name;
        const auto library = machine.library(file);
        if (!loadInTwoTries(machine, *library, executable))
            throw Exception("Unable to load " + library->file().toString().toLegacyUtf8() +
                            unloadablePluginAdvice);
        checkStamp(machine, *library);
    }
}
