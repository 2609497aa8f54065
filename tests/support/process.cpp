#include "support/process.h"

#include "support/temporaryfolder.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void replace(int stream, int descriptor)
{
    ::dup2(descriptor, stream);
    ::close(descriptor);
}

void redirect(int stream, Stream kind, const std::string& captureFile)
{
    switch (kind) {
    case Stream::captured:
        replace(stream, ::open(captureFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
        break;
    case Stream::closed:
        ::close(stream);
        break;
    case Stream::brokenPipe: {
        int ends[2];
        if (::pipe(ends) != 0)
            ::_exit(126);
        ::close(ends[0]);
        replace(stream, ends[1]);
        break;
    }
    case Stream::fullDevice:
        replace(stream, ::open("/dev/full", O_WRONLY));
        break;
    }
}

/// The exit code of a child, once it has ended; minus the number of the signal that ended it.
int waitFor(pid_t child, rusage& usage)
{
    int status = 0;
    ::wait4(child, &status, 0, &usage);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options)
{
    const TemporaryFolder folder;
    const std::string input = folder.write("input", options.input).native();
    const std::string output = folder.write("output", "").native();
    const std::string error = folder.write("error", "").native();
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot start a process");
    if (child == 0) {
        for (const auto& [name, value] : options.environment)
            ::setenv(name.c_str(), value.c_str(), 1);
        if (!options.folder.empty() && ::chdir(options.folder.c_str()) != 0)
            ::_exit(126);
        replace(STDIN_FILENO, ::open(input.c_str(), O_RDONLY));
        redirect(STDERR_FILENO, options.error, error);
        redirect(STDOUT_FILENO, options.output, output);
        if (options.fileSizeLimit)
            limitFileSize(*options.fileSizeLimit);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    rusage usage{};
    const int exitCode = waitFor(child, usage);
    const auto peakMemory = static_cast<std::size_t>(usage.ru_maxrss) << 10; // it comes in kilobytes
    return {exitCode, folder.read("output"), folder.read("error"), peakMemory};
}

int runInChild(const std::function<int()>& function)
{
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot start a process");
    if (child > 0) {
        rusage ignored{};
        return waitFor(child, ignored);
    }
    try {
        ::_exit(function());
    } catch (...) {
        ::_exit(125);
    }
}

void dropRights()
{
    static constexpr id_t nobody = 65534;
    if (::geteuid() != 0)
        return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
        throw std::runtime_error("cannot give up rights");
}

void limitFileSize(std::size_t bytes)
{
    const rlimit limit{bytes, bytes};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
        throw std::runtime_error("cannot limit the size of files");
}

std::string builtProgram(const std::string& name)
{
    return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).native();
}
