#ifndef PYTHONMACHINE_H
#define PYTHONMACHINE_H

#include "Python/pluginlibrary.h"
#include "Python/pythoninstallation.h"

#include <memory>
#include <string>
#include <vector>

/// All that the selection asks of the machine. This class asks the real one; tests stand in for it.
class PythonMachine
{
public:
    /// The machine that managers use: this one, unless another one stands in.
    static PythonMachine& current();

    virtual ~PythonMachine() = default;

    /// In the order of discovery.
    virtual std::vector<PythonInstallation> installations();

    /// The version text of an interpreter, empty when it cannot be told.
    virtual std::string versionOf(const Halvorin::System::FilePath& interpreter);

    /// The language server that belongs to an interpreter; empty when there is none.
    virtual Halvorin::System::FilePath languageServer(const Halvorin::System::FilePath& interpreter);

    /// "python/plugins" beside the program.
    virtual Halvorin::System::FilePath pluginsFolder();

    /// The Python version for which a plug-in file was built; empty when it is no plug-in.
    virtual std::string pluginStamp(const Halvorin::System::FilePath& file);

    /// The names of the loaded libraries.
    virtual std::vector<std::string> loadedModules();

    virtual std::unique_ptr<PluginLibrary> library(const Halvorin::System::FilePath& file);

    /// Libraries of the interpreter that must be loaded before a plug-in finds them.
    virtual std::vector<Halvorin::System::FilePath> librariesOf(const Halvorin::System::FilePath& interpreter,
                                                                const std::string& version);
};

/// While it lives, another machine stands in for the real one. GUI thread only.
class PythonMachineStandIn
{
public:
    explicit PythonMachineStandIn(PythonMachine& machine);
    PythonMachineStandIn(const PythonMachineStandIn&) = delete;
    PythonMachineStandIn& operator=(const PythonMachineStandIn&) = delete;
    ~PythonMachineStandIn();
};

#endif
