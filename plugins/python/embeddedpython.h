#ifndef EMBEDDEDPYTHON_H
#define EMBEDDEDPYTHON_H

#include "pluginexport.h"

#include <cstddef>

/// What EmbeddedPython exports. The interpreter is started by the first call: apart from the environment and
/// the user's own packages, and it leaves signals to the program. Calls may come from any thread; one runs at
/// a time. No exception leaves a call, of either language: it gives 0 when all went well, else -1, and then
/// the exception as text, such as "NameError: name 'x' is not defined", cut to `size` bytes with the final
/// zero.

/// Runs statements in the module __main__, which keeps what they define.
PLUGIN_EXPORT int dyn_RunPython(const char* code, char* error, std::size_t size);

/// Calls a function that may use Python's C interface: it is told nothing but `data`, and gives 0, or -1 with
/// a Python exception set.
PLUGIN_EXPORT int dyn_CallPython(int (*function)(void* data), void* data, char* error, std::size_t size);

#endif
