#include "Python/pythonmachine.h"

#include "HostSupport/fileversion.h"
#include "HostSupport/folders.h"
#include "HostSupport/modules.h"
#include "Python/pythonplatform.h"
#include "Python/pythonversion.h"
#include "Python/qtpluginlibrary.h"

using Halvorin::System::FilePath;

namespace {

PythonMachine* standIn = nullptr;

} // namespace

PythonMachine& PythonMachine::current()
{
    static PythonMachine machine;
    return standIn ? *standIn : machine;
}

std::vector<PythonInstallation> PythonMachine::installations()
{
    return PythonPlatform::installations([this](const FilePath& file) { return versionOf(file); });
}

std::string PythonMachine::versionOf(const FilePath& interpreter)
{
    return versionText(sp_GetFileVersion(interpreter));
}

FilePath PythonMachine::languageServer(const FilePath& interpreter)
{
    return PythonPlatform::languageServer(interpreter);
}

FilePath PythonMachine::pluginsFolder()
{
    FilePath folder = sp_GetExeDir();
    folder /= "python";
    folder /= "plugins";
    return folder;
}

std::string PythonMachine::pluginStamp(const FilePath& file)
{
    return sp_GetFileVersionString(file, "PythonVersion").value_or("");
}

std::vector<std::string> PythonMachine::loadedModules()
{
    return sp_GetLoadedModules();
}

std::unique_ptr<PluginLibrary> PythonMachine::library(const FilePath& file)
{
    return std::make_unique<QtPluginLibrary>(file);
}

std::vector<FilePath> PythonMachine::librariesOf(const FilePath& interpreter, const std::string& version)
{
    return PythonPlatform::librariesOf(interpreter, version);
}

PythonMachineStandIn::PythonMachineStandIn(PythonMachine& machine)
{
    standIn = &machine;
}

PythonMachineStandIn::~PythonMachineStandIn()
{
    standIn = nullptr;
}
