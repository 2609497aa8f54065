#include "host/hostregistrations.h"

#include "HostSupport/registrations.h"

namespace {

const FuncConstruct compileDigitalDeviceStateChart("CompileDigitalDeviceStateChart",
                                                   {ScriptArgumentType::string, ScriptArgumentType::string},
                                                   {}, 2, 2, compileDigitalDeviceStateChartHandler,
                                                   "DigitalDevices", ScriptResultType::strings, {});

const FuncConstruct isPythonLoaded("IsPythonLoaded", {ScriptArgumentType::none}, {}, 0, 0,
                                   isPythonLoadedHandler, "Python", ScriptResultType::boolean, {});
const FuncConstruct pythonDefaults("PythonDefaults", {ScriptArgumentType::number}, {}, 0, 1,
                                   pythonDefaultsHandler, "Python", ScriptResultType::strings, {});
const FuncConstruct pythonSupportedVersions("PythonSupportedVersions", {ScriptArgumentType::none}, {}, 0, 0,
                                            pythonSupportedVersionsHandler, "Python",
                                            ScriptResultType::strings, {});
const FuncConstruct pythonVersions("PythonVersions", {ScriptArgumentType::none}, {}, 0, 0,
                                   pythonVersionsHandler, "Python", ScriptResultType::strings, {});

const AutoFunc loadPython("PostPluginLoad", loadPythonHook, "loadPython");

YString userPath;
bool showsCompleter;
bool showsCompleterDocumentation;
bool showsSignatureHelper;
bool showsHover;

const MakeOption userPathOption(__FILE__, __LINE__, &userPath, "python.userPath", "", 0);
const MakeOption completerOption(__FILE__, __LINE__, &showsCompleter, "python.showCompleter", true, 0);
const MakeOption completerDocumentationOption(__FILE__, __LINE__, &showsCompleterDocumentation,
                                              "python.showCompleterDocumentation", true, 0);
const MakeOption signatureHelperOption(__FILE__, __LINE__, &showsSignatureHelper,
                                       "python.showSignatureHelper", true, 0);
const MakeOption hoverOption(__FILE__, __LINE__, &showsHover, "python.showHover", true, 0);

const OptionAction userPathAction("python.userPath", wantedPythonChanged);
const OptionAction pythonVersionAction("python.pythonVersion", wantedPythonChanged);

} // namespace
