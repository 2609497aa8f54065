#ifndef PYTHONEXECUTABLEMANAGER_H
#define PYTHONEXECUTABLEMANAGER_H

#include "Python/pythonexecutable.h"
#include "Python/pythonmachine.h"

#include <string>
#include <vector>

/// The Python versions that are known, each installed, supported by a plug-in, or both; which of them is the
/// default; and loading one. The list is made with the manager: make one anew for each question.
///
///     PythonExecutableManager manager;
///     manager.load(manager.defaultVersion());
///
/// When the option "python.userPath" names an interpreter, no other one is looked for. GUI thread only.
class PythonExecutableManager
{
public:
    /// @throws std::filesystem::filesystem_error when the plug-ins' folder cannot be read.
    PythonExecutableManager();

    /// In the order of discovery.
    const std::vector<PythonExecutable>& executables() const { return m_executables; }

    /// Null when the version is not known.
    const PythonExecutable* find(const std::string& version) const;

    /// The versions that have a plug-in.
    std::vector<std::string> supportedVersions() const;

    /// The versions that have both a plug-in and an installation.
    std::vector<std::string> usableVersions() const;

    /// Whether a version has both.
    bool isUsable(const std::string& version) const;

    /// The version of the option "python.pythonVersion" if it is usable, else the highest one that is; empty
    /// when there is none.
    std::string defaultVersion() const;

    /// The interpreter of a version; empty when it is not installed.
    std::wstring pythonPath(const std::string& version) const;

    /// The language server beside the default version's interpreter; empty when there is none.
    std::wstring defaultLanguageServer() const;

    /// Loads the plug-ins for a version, for good. What goes wrong is logged, and gives false.
    bool load(const std::string& version) const;

private:
    void addUserPath(const Halvorin::System::FilePath& path);
    void addInstallations();
    void addLanguageServers();
    void addPlugins();

    PythonMachine& m_machine;
    std::vector<PythonExecutable> m_executables;
};

/// Whether a plug-in has been loaded. It stays as it is until the application ends.
bool isPythonLoaded();

/// Says in the log that a change of the version has to wait; false when no plug-in is loaded, and there is
/// nothing to say.
bool reportThatVersionIsLoaded();

#endif
