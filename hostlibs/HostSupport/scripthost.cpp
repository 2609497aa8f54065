#include "HostSupport/scripthost.h"

#include "HalvCore/application.h"
#include "HalvCore/numbertext.h"
#include "HostSupport/registry.h"

#include <exception>

using Halvorin::System::Application;

namespace HostSupport {

namespace {

using Reason = ScriptCallException::Reason;

/// Somebody else's code runs in here: no exception of any kind goes on from it.
template <class Call>
void guarded(const std::string& name, const Call& handlerCall)
{
    try {
        handlerCall();
    } catch (const std::exception& error) {
        throw ScriptCallException(Reason::handlerFailed, name + " failed: " + error.what());
    } catch (...) {
        throw ScriptCallException(Reason::handlerFailed, name + " failed: unknown error");
    }
}

void checkBounds(const std::string& name, std::size_t given, int minimum, int maximum)
{
    if (static_cast<int>(given) >= minimum && static_cast<int>(given) <= maximum)
        return;
    std::string wanted = Halvorin::System::numberText(minimum);
    if (maximum != minimum)
        wanted += " to " + Halvorin::System::numberText(maximum);
    throw ScriptCallException(Reason::argumentCount, name + " takes " + wanted +
                                                         (wanted == "1" ? " argument, " : " arguments, ") +
                                                         Halvorin::System::numberText(given) +
                                                         (given == 1 ? " was given" : " were given"));
}

void logCall(const std::string& name, const std::vector<std::string>& arguments)
{
    Application& application = Application::instance();
    if (!application.settings().logScriptCalls())
        return;
    std::string text = name + "(";
    for (std::size_t i = 0; i < arguments.size(); ++i)
        text += (i ? ", \"" : "\"") + arguments[i] + "\"";
    application.logger().info("script", text + ")");
}

ScriptValue callFunction(const FunctionRegistration& function, std::vector<std::string> texts)
{
    ScriptArguments arguments(std::move(texts));
    ScriptResults results;
    ScriptSharedBlock* block = ScriptSharedBlock::create();
    const ScriptSharedBlockHold hold(*block);
    block->release(); // the hold is the host's share from here on
    guarded(function.name, [&] { function.handler(arguments, results, *block); });
    if (!results.isFinished())
        throw ScriptCallException(Reason::handlerFailed, std::string(function.name) + " gave no result");
    switch (function.resultType) {
    case ScriptResultType::boolean:
        return results.boolean();
    case ScriptResultType::strings:
        return results.strings();
    case ScriptResultType::none:
        break;
    }
    return std::monostate();
}

} // namespace

ScriptValue call(const std::string& name, std::vector<std::string> arguments)
{
    Registry& registry = Registry::instance();
    if (const FunctionRegistration* function = registry.functions().find(name)) {
        checkBounds(name, arguments.size(), function->minimumArguments, function->maximumArguments);
        logCall(name, arguments);
        return callFunction(*function, std::move(arguments));
    }
    if (const CommandRegistration* command = registry.commands().find(name)) {
        checkBounds(name, arguments.size(), 0, 0);
        logCall(name, arguments);
        guarded(name, command->handler);
        return std::monostate();
    }
    throw ScriptCallException(Reason::unknownName, "there is no script function or command '" + name + "'");
}

void runHooks(std::string_view event)
{
    const auto hooks = Registry::instance().hooks().all(); // a hook may register more
    for (const HookRegistration* hook : hooks) {
        if (event != hook->event)
            continue;
        try {
            guarded(hook->name, hook->handler);
        } catch (const ScriptCallException& error) {
            Application::instance().logger().error("script", error.what());
        }
    }
}

void start()
{
    Registry::instance().makeMirrorsLive();
    runHooks("PostPluginLoad");
    runHooks("PreExec");
}

} // namespace HostSupport
