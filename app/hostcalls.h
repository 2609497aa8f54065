#ifndef HOSTCALLS_H
#define HOSTCALLS_H

#include "HostSupport/scripthost.h"

/// Calls a script function or command, logged when the option "application.logScriptCalls" is on.
/// @throws UsageError for a name or a number of arguments that the host does not take; another exception
/// for a handler that failed.
HostSupport::ScriptValue callScript(const std::string& name, std::vector<std::string> arguments);

#endif
