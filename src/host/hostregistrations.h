#ifndef HOSTREGISTRATIONS_H
#define HOSTREGISTRATIONS_H

#include "HostSupport/scriptcall.h"

/// The handlers of the script functions and commands that the library registers. The statics that register
/// them stand in hostregistrations.cpp: loading the library is registering it. To add one, declare its
/// handler here, write it in a file of its own, and add its static there.
///
/// A handler holds the shared block, lets no exception out, and finishes its results last.

/// Two strings, the paths of a definition and of the compiled device; strings, see compilecommand.h.
void compileDigitalDeviceStateChartHandler(ScriptArguments& arguments, ScriptResults& results,
                                           ScriptSharedBlock& block);

#endif
