#include "host/hostregistrations.h"

#include "HostSupport/registrations.h"

namespace {

const FuncConstruct compileDigitalDeviceStateChart("CompileDigitalDeviceStateChart",
                                                   {ScriptArgumentType::string, ScriptArgumentType::string},
                                                   {}, 2, 2, compileDigitalDeviceStateChartHandler,
                                                   "DigitalDevices", ScriptResultType::strings, {});

} // namespace
