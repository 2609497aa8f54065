#ifndef INTERPRETERFOLDERS_H
#define INTERPRETERFOLDERS_H

#include "Python/pythoninstallation.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Where interpreters stand on a machine without a registry, as the environment says.
struct InterpreterPlaces
{
    std::vector<std::filesystem::path> systemFolders;
    std::string searchPath; // PATH
    std::filesystem::path home;
    std::filesystem::path pyenvRoot; // where the user moved it; empty: in the home alone
};

/// The absolute folders of a search path; what stands in the folder that happens to be the current one must
/// not be run.
std::vector<std::filesystem::path> searchPathFolders(std::string_view searchPath);

/// The folders to look in: the system's own, then those of PATH (but for a version manager's "shims",
/// which only stand for what follows), then those of version managers. A folder may be missing.
std::vector<std::filesystem::path> interpreterFolders(const InterpreterPlaces& places);

/// The programs "python3.N" in these folders, in the order of the folders and of N. The first one of each
/// version counts: one whose name speaks of a version that is there already is not asked, nor is one that
/// was reached already by another name.
std::vector<PythonInstallation> listInterpreters(const std::vector<std::filesystem::path>& folders,
                                                 const VersionOfFile& versionOf);

#endif
