#include "HostSupport/registrations.h"
#include "Python/pythonlog.h"
#include "Python/pythonstart.h"
#include "host/hostregistrations.h"
#include "host/showinformation.h"

#include <utility>

namespace {

/// Registered once it is known what the default is.
void registerPythonVersion(const std::string& defaultVersion)
{
    static YString mirror;
    static const MakeOption option(__FILE__, __LINE__, &mirror, "python.pythonVersion",
                                   defaultVersion.c_str(), 0);
}

void registerLanguageServer()
{
    static YString mirror;
    static const MakeOption option(__FILE__, __LINE__, &mirror, "python.languageServer", "", 0);
}

} // namespace

void loadPythonHook()
{
    static bool hasRun = false;
    if (std::exchange(hasRun, true))
        return;
    try {
        const PythonExecutableManager manager;
        registerPythonVersion(manager.defaultVersion());
        loadChosenPython(manager, showInformation);
        registerLanguageServer();
        fillLanguageServer(manager);
    } catch (const std::exception& error) {
        PythonLog::error(error.what());
        registerPythonVersion(""); // there are the options at the least
        registerLanguageServer();
    }
}

void wantedPythonChanged()
{
    reportThatVersionIsLoaded();
}
