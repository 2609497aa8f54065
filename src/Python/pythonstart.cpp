#include "Python/pythonstart.h"

#include "HalvCore/widetext.h"
#include "HostSupport/options.h"
#include "Python/pythonlog.h"

using Halvorin::System::narrowText;

namespace {

constexpr auto versionOption = "python.pythonVersion";
constexpr auto languageServerOption = "python.languageServer";

void fill(const char* option, const std::string& value)
{
    const std::string current = sp_GetStringOption(option).tocs();
    if (current.empty() && !value.empty())
        sp_WriteOption(option, value.c_str());
}

/// The version to load, after the option has been put right.
std::string chosenVersion(const PythonExecutableManager& manager)
{
    std::string version = sp_GetStringOption(versionOption).tocs();
    if (version.empty() || manager.isUsable(version))
        return version;
    version = manager.defaultVersion();
    if (!version.empty())
        sp_WriteOption(versionOption, version.c_str());
    return version;
}

} // namespace

void loadChosenPython(const PythonExecutableManager& manager, const ShowInformation& showInformation)
{
    const std::string version = chosenVersion(manager);
    if (version.empty())
        return;
    if (isPythonLoaded()) {
        showInformation("Restart to Load Python",
                        "Restart the application to load the new version of Python");
        return;
    }
    PythonLog::diagnostic("Loading Python version " + version);
    manager.load(version);
}

void fillPythonVersion(const PythonExecutableManager& manager)
{
    fill(versionOption, manager.defaultVersion());
}

void fillLanguageServer(const PythonExecutableManager& manager)
{
    fill(languageServerOption, narrowText(manager.defaultLanguageServer()));
}
