#ifndef PVXEMBEDDEDPYTHON_H
#define PVXEMBEDDEDPYTHON_H

#include "pluginexport.h"

#include <cstddef>

/// What PVXEmbeddedPython exports: modules for the code that EmbeddedPython runs. Errors are given as there.

/// Runs the text of a module and makes it what "import NAME" gives from now on, also in place of one of that
/// name that was there. When it fails, nothing has changed.
PLUGIN_EXPORT int dyn_AddPythonModule(const char* name, const char* text, char* error, std::size_t size);

#endif
