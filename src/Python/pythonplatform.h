#ifndef PYTHONPLATFORM_H
#define PYTHONPLATFORM_H

#include "Python/pythoninstallation.h"

#include <filesystem>
#include <vector>

/// Where platforms differ. Each function is implemented in pythonplatform_*.cpp, a file a platform.
namespace PythonPlatform {

/// What is installed on this machine.
std::vector<PythonInstallation> installations(const VersionOfFile& versionOf);

/// The language server that belongs to an interpreter; empty when there is none.
Halvorin::System::FilePath languageServer(const Halvorin::System::FilePath& interpreter);

/// Puts a folder before the others of PATH, in the environment of this process.
void prependToPath(const Halvorin::System::FilePath& folder);

/// The interpreter's own libraries that have to be loaded before a plug-in can find them; none where PATH
/// leads to them.
std::vector<Halvorin::System::FilePath> librariesOf(const Halvorin::System::FilePath& interpreter,
                                                    const std::string& version);

} // namespace PythonPlatform

#endif
