#ifndef SHELLTESTER_H
#define SHELLTESTER_H

#include "support/process.h"
#include "support/temporaryfolder.h"

/// A test that runs the built shell in a folder of its own, with a user's configuration of its own.
class ShellTester : public testing::Test
{
protected:
    ProcessResult run(const std::vector<std::string>& arguments, ProcessOptions options = {}) const
    {
        std::vector<std::string> command{builtProgram("halvorin")};
        command.insert(command.end(), arguments.begin(), arguments.end());
        options.folder = folder.path().native();
        options.environment.emplace_back("XDG_CONFIG_HOME", (folder / "config").native());
        return runProcess(command, options);
    }

    /// A line of the system's shell, in which "$0" is the built shell.
    ProcessResult shell(const std::string& line, ProcessOptions options = {}) const
    {
        options.folder = folder.path().native();
        options.environment.emplace_back("XDG_CONFIG_HOME", (folder / "config").native());
        return runProcess({"sh", "-c", line, builtProgram("halvorin")}, options);
    }

    TemporaryFolder folder;
};

#endif
