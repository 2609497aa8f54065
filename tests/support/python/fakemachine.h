#ifndef FAKEMACHINE_H
#define FAKEMACHINE_H

#include "Python/pythonmachine.h"
#include "support/temporaryfolder.h"

#include <map>
#include <optional>

/// A machine of a test's own: what is installed, what has a plug-in and what happens when one is loaded is
/// set up in tables, and what was asked for is kept.
class FakeMachine : public PythonMachine
{
public:
    using FilePath = Halvorin::System::FilePath;

    /// How a library behaves.
    struct Library
    {
        int failures = 0; // tries that fail first
        std::optional<int> version;
    };

    void install(const std::string& version, const FilePath& path, const std::wstring& company = coreCompany)
    {
        installed.push_back({company, version, path});
    }

    /// Puts a file with this stamp into the plug-ins' folder.
    void addPlugin(const std::filesystem::path& name, const std::string& stamp)
    {
        stamps[FilePath(folder.write("plugins" / name, stamp))] = stamp;
    }

    /// A machine on which one version is installed and supported, and loads.
    void setUpOne(const std::string& version, int number)
    {
        install(version, "/opt/python/bin/python" + version);
        for (const char* name : {"EmbeddedPython", "PVXEmbeddedPython"}) {
            addPlugin(name, version);
            libraries[name].version = number;
        }
    }

    std::vector<PythonInstallation> installations() override
    {
        ++searches;
        return installed;
    }
    std::string versionOf(const FilePath& file) override { return versions[file]; }
    FilePath languageServer(const FilePath& file) override { return servers[file]; }
    FilePath pluginsFolder() override { return folder / "plugins"; }
    std::string pluginStamp(const FilePath& file) override { return stamps[file]; }
    std::vector<std::string> loadedModules() override { return modules; }
    std::unique_ptr<PluginLibrary> library(const FilePath& file) override;
    std::vector<FilePath> librariesOf(const FilePath&, const std::string&) override { return needed; }

    TemporaryFolder folder;
    std::vector<PythonInstallation> installed;
    std::map<FilePath, std::string> versions;
    std::map<FilePath, FilePath> servers;
    std::map<FilePath, std::string> stamps;
    std::vector<std::string> modules{"libc.so.6"};
    std::map<std::string, Library> libraries; // by file name; one that is not here always fails
    std::vector<FilePath> needed;

    int searches = 0;
    std::vector<std::string> tries; // the file names, each with the first folder of PATH at that time

private:
    PythonMachineStandIn m_standIn{*this};
};

#endif
