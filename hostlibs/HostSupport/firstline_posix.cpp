#include "HostSupport/firstline.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace HostSupport {

namespace {

using Clock = std::chrono::steady_clock;

/// A program in a process group of its own, which ends with this object.
class RunningProgram
{
public:
    RunningProgram(const std::filesystem::path& program, std::vector<char*> arguments, int output)
    {
        posix_spawn_file_actions_t streams;
        posix_spawnattr_t attributes;
        posix_spawn_file_actions_init(&streams);
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_adddup2(&streams, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&streams, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
        posix_spawnattr_setpgroup(&attributes, 0);
        if (posix_spawn(&m_process, program.c_str(), &streams, &attributes, arguments.data(), environ) != 0)
            m_process = -1;
        posix_spawn_file_actions_destroy(&streams);
        posix_spawnattr_destroy(&attributes);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram()
    {
        if (m_process < 0)
            return;
        ::kill(-m_process, SIGKILL);
        ::kill(m_process, SIGKILL); // it may have left its group
        while (::waitpid(m_process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

private:
    pid_t m_process = -1;
};

/// Waits for something to read, or for the end of the stream.
bool waitForInput(int descriptor, Clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd wanted{descriptor, POLLIN, 0};
        const int ready = ::poll(&wanted, 1, static_cast<int>(std::max<long long>(left.count(), 0)));
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

std::string readLine(int descriptor, Clock::time_point deadline)
{
    std::string text;
    while (text.size() < longestFirstLine && waitForInput(descriptor, deadline)) {
        std::array<char, longestFirstLine> buffer{};
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size() - text.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        text.append(buffer.data(), static_cast<std::size_t>(count));
        if (text.find('\n') != std::string::npos)
            break;
    }
    return text.substr(0, text.find('\n'));
}

} // namespace

std::string firstLineOf(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                        std::chrono::milliseconds limit)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {};
    std::string line;
    {
        const auto deadline = Clock::now() + limit;
        std::vector<char*> words{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        const RunningProgram running(program, std::move(words), ends[1]);
        ::close(ends[1]);
        line = readLine(ends[0], deadline);
    }
    ::close(ends[0]);
    return line;
}

} // namespace HostSupport
