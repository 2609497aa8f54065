#ifndef PYTHONINSTALLATION_H
#define PYTHONINSTALLATION_H

#include "HalvCore/filepath.h"

#include <functional>
#include <string>

/// Whose Python comes first where several have the same version.
inline constexpr auto coreCompany = L"PythonCore";

/// An interpreter that was found on the machine.
struct PythonInstallation
{
    std::wstring company;
    std::string version; // empty when it could not be told
    Halvorin::System::FilePath path;
};

/// Gives the version text of an interpreter, empty when it cannot be told.
using VersionOfFile = std::function<std::string(const Halvorin::System::FilePath&)>;

#endif
