#ifndef HOSTREGISTRATIONS_H
#define HOSTREGISTRATIONS_H

#include "HostSupport/scriptcall.h"

/// The handlers of the script functions, commands, hooks and options that the library registers. The statics
/// that register them stand in hostregistrations.cpp: loading the library is registering it. To add one,
/// declare its handler here, write it in a file of its own, and add its static there.
///
/// A handler holds the shared block, lets no exception out, and finishes its results last.

/// Two strings, the paths of a definition and of the compiled device; strings, see compilecommand.h.
void compileDigitalDeviceStateChartHandler(ScriptArguments& arguments, ScriptResults& results,
                                           ScriptSharedBlock& block);

/// No argument; whether a Python plug-in is loaded.
void isPythonLoadedHandler(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block);

/// One optional number; the default version, its interpreter and its language server. A number other than 0
/// also makes them the values of the options that are empty. Nothing when they cannot be told.
void pythonDefaultsHandler(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block);

/// No argument; the Python versions that have a plug-in.
void pythonSupportedVersionsHandler(ScriptArguments& arguments, ScriptResults& results,
                                    ScriptSharedBlock& block);

/// No argument; the Python versions that have a plug-in and are installed.
void pythonVersionsHandler(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block);

/// The hook that selects and loads Python, once; a second call does nothing.
void loadPythonHook();

/// The action of the options that say which Python is wanted.
void wantedPythonChanged();

#endif
