#include "Python/pythonexecutablemanager.h"

#include "HostSupport/options.h"
#include "Python/pythonlog.h"
#include "Python/pythonpathreceiver.h"
#include "Python/pythonplugins.h"
#include "Python/pythonversion.h"

#include <algorithm>

using Halvorin::System::FilePath;

namespace {

std::string stringOption(const char* name)
{
    return sp_GetStringOption(name).tocs();
}

/// The versions of the records for which something holds.
template <class Predicate>
std::vector<std::string> versionsWith(const std::vector<PythonExecutable>& executables, Predicate holds)
{
    std::vector<std::string> versions;
    for (const PythonExecutable& executable : executables) {
        if (holds(executable))
            versions.push_back(executable.version);
    }
    return versions;
}

} // namespace

PythonExecutableManager::PythonExecutableManager() : m_machine(PythonMachine::current())
{
    const std::string userPath = stringOption("python.userPath");
    if (!userPath.empty())
        addUserPath(userPath);
    else
        addInstallations();
    addLanguageServers();
    addPlugins();
}

void PythonExecutableManager::addUserPath(const FilePath& path)
{
    const std::string version = m_machine.versionOf(path);
    if (version.empty()) {
        PythonLog::warning("no Python version can be told of '" + path.toString().toLegacyUtf8() +
                           "', which the option python.userPath names");
        return;
    }
    m_executables.push_back({version, path.toStdWString(), false, {}});
    PythonLog::diagnostic("Using Python user path, version: " + version);
}

void PythonExecutableManager::addInstallations()
{
    const auto installations = m_machine.installations();
    for (const bool takesAll : {false, true}) {
        for (const PythonInstallation& installation : installations) {
            const bool isTaken = takesAll || installation.company == coreCompany;
            if (!isTaken || installation.version.empty() || find(installation.version))
                continue;
            m_executables.push_back({installation.version, installation.path.toStdWString(), false, {}});
            PythonLog::diagnostic("Found Python installation, version: " + installation.version);
        }
    }
}

void PythonExecutableManager::addLanguageServers()
{
    for (PythonExecutable& executable : m_executables) {
        executable.languageServer = m_machine.languageServer(executable.pythonPath).toStdWString();
        if (!executable.languageServer.empty())
            PythonLog::diagnostic("Version " + executable.version + " language server found");
    }
}

void PythonExecutableManager::addPlugins()
{
    for (const std::string& version : pluginVersions(m_machine)) {
        const auto known = std::ranges::find(m_executables, version, &PythonExecutable::version);
        if (known != m_executables.end())
            known->isSupported = true;
        else
            m_executables.push_back({version, {}, true, {}});
        PythonLog::diagnostic("Version " + version + " supported");
    }
}

const PythonExecutable* PythonExecutableManager::find(const std::string& version) const
{
    const auto found = std::ranges::find(m_executables, version, &PythonExecutable::version);
    return found != m_executables.end() ? &*found : nullptr;
}

std::vector<std::string> PythonExecutableManager::supportedVersions() const
{
    return versionsWith(m_executables, [](const auto& executable) { return executable.isSupported; });
}

std::vector<std::string> PythonExecutableManager::usableVersions() const
{
    return versionsWith(m_executables, [](const auto& executable) { return executable.isUsable(); });
}

bool PythonExecutableManager::isUsable(const std::string& version) const
{
    const PythonExecutable* executable = find(version);
    return executable && executable->isUsable();
}

std::string PythonExecutableManager::defaultVersion() const
{
    std::string chosen = stringOption("python.pythonVersion");
    if (isUsable(chosen))
        return chosen;
    const std::vector<std::string> versions = usableVersions();
    const auto highest = std::ranges::max_element(versions, {}, versionNumber);
    return highest != versions.end() ? *highest : std::string();
}

std::wstring PythonExecutableManager::pythonPath(const std::string& version) const
{
    const PythonExecutable* executable = find(version);
    return executable ? executable->pythonPath : std::wstring();
}

std::wstring PythonExecutableManager::defaultLanguageServer() const
{
    const PythonExecutable* executable = find(defaultVersion());
    return executable ? executable->languageServer : std::wstring();
}

bool PythonExecutableManager::load(const std::string& version) const
{
    if (reportThatVersionIsLoaded())
        return false;
    const PythonExecutable* executable = find(version);
    if (!executable) {
        PythonLog::error("unknown python version: " + version);
        return false;
    }
    try {
        sendPythonPath(executable->pythonPath);
        loadPlugins(m_machine, *executable);
        return true;
    } catch (const std::exception& error) {
        PythonLog::error(error.what());
        return false;
    }
}

bool isPythonLoaded()
{
    return isPluginLoaded(PythonMachine::current());
}

bool reportThatVersionIsLoaded()
{
    if (!isPythonLoaded())
        return false;
    PythonLog::error("Python version will change after application restart.");
    return true;
}
