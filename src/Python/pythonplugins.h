#ifndef PYTHONPLUGINS_H
#define PYTHONPLUGINS_H

#include "Python/pythonexecutable.h"
#include "Python/pythonmachine.h"

#include <vector>

/// The plug-ins that embed Python: which there are, whether they are loaded, loading them.

/// For each file in the plug-ins' folder and below it that is a plug-in, the version it is for, in the order
/// in which the files are met. A folder that is not there holds none.
/// @throws std::filesystem::filesystem_error when the folders cannot be read.
std::vector<std::string> pluginVersions(PythonMachine& machine);

/// Whether the plug-in is among the loaded modules.
bool isPluginLoaded(PythonMachine& machine);

/// Loads both plug-ins for an interpreter. Each is tried twice; before the second try the interpreter's
/// folder is put first on PATH, and its own library is loaded.
/// @throws Halvorin::System::Exception for one that cannot be loaded, and for one that embeds another version
/// than its file says.
void loadPlugins(PythonMachine& machine, const PythonExecutable& executable);

#endif
