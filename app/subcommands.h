#ifndef SUBCOMMANDS_H
#define SUBCOMMANDS_H

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// What the parsed command line asks for. It gives the exit code; an exception is reported as an error.
using Action = std::function<int()>;

/// Each adds one subcommand to the command line and, when it is the one that was asked for, sets the
/// action. To add one, write it in a file of its own, declare it here and call it in main.cpp.
void addFunctionsCommand(CLI::App& application, Action& action);
/// `arguments`, of the function to call, do not go through the parser; they are read when the action runs.
void addCallCommand(CLI::App& application, Action& action, const std::vector<std::string>& arguments);
void addCompileCommand(CLI::App& application, Action& action);
void addCheckCommand(CLI::App& application, Action& action);
void addBundleCommand(CLI::App& application, Action& action);
void addUnbundleCommand(CLI::App& application, Action& action);
void addRunCommand(CLI::App& application, Action& action);
void addDiagramCommand(CLI::App& application, Action& action);
void addLspCommand(CLI::App& application, Action& action);
void addRstCommand(CLI::App& application, Action& action);
void addHighlightCommand(CLI::App& application, Action& action);

#endif
