#ifndef PYTHONSTART_H
#define PYTHONSTART_H

#include "Python/pythonexecutablemanager.h"

#include <functional>
#include <string>

/// What is done about Python once, when the application starts, and about its options.

/// Tells the user something, and waits until it has been read.
using ShowInformation = std::function<void(const std::string& title, const std::string& text)>;

/// Loads the version of the option "python.pythonVersion". One that is not both installed and supported is
/// replaced by the default version, in the option too (unless there is no default). An empty option loads
/// nothing. When a plug-in is loaded already, the user is told to restart.
void loadChosenPython(const PythonExecutableManager& manager, const ShowInformation& showInformation);

/// Give an option that is empty its default, unless that is empty too.
void fillPythonVersion(const PythonExecutableManager& manager);
void fillLanguageServer(const PythonExecutableManager& manager);

#endif
