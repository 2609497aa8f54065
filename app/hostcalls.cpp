#include "hostcalls.h"

#include "HalvCore/application.h"
#include "HostSupport/options.h"
#include "exitcode.h"

using HostSupport::ScriptCallException;

HostSupport::ScriptValue callScript(const std::string& name, std::vector<std::string> arguments)
{
    const bool log = sp_GetBoolOption("application.logScriptCalls");
    Halvorin::System::Application::instance().settings().setLogScriptCalls(log);
    try {
        return HostSupport::call(name, std::move(arguments));
    } catch (const ScriptCallException& error) {
        if (error.reason() == ScriptCallException::Reason::handlerFailed)
            throw;
        throw UsageError(error.what());
    }
}
