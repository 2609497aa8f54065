#include "runoutput.h"

#include "standardstreams.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace RunOutput {

namespace {

std::array<char, 65536> buffer;
volatile std::size_t used = 0;

/// Keeps the time limit from ending the process half-way through a text, which would come out in part or
/// twice. It strikes when this goes.
class AlarmBlock
{
public:
    AlarmBlock()
    {
        sigset_t alarm;
        sigemptyset(&alarm);
        sigaddset(&alarm, SIGALRM);
        sigprocmask(SIG_BLOCK, &alarm, &m_former);
    }
    AlarmBlock(const AlarmBlock&) = delete;
    AlarmBlock& operator=(const AlarmBlock&) = delete;
    ~AlarmBlock() { sigprocmask(SIG_SETMASK, &m_former, nullptr); }

private:
    sigset_t m_former;
};

} // namespace

void flush()
{
    const AlarmBlock block;
    StandardStreams::print({buffer.data(), used});
    std::fflush(stdout); // a failure shows when the stream is finished
    used = 0;
}

void print(std::string_view text)
{
    static const bool isTerminal = ::isatty(STDOUT_FILENO) == 1;
    if (text.size() > buffer.size() - used)
        flush();
    if (text.size() > buffer.size()) {
        const AlarmBlock block;
        StandardStreams::print(text);
        std::fflush(stdout);
        return;
    }
    std::memcpy(buffer.data() + used, text.data(), text.size());
    used = used + text.size();
    if (isTerminal) // somebody is looking on
        flush();
}

void flushInSignalHandler() noexcept
{
    std::size_t written = 0;
    while (written < used) {
        const ssize_t count = ::write(STDOUT_FILENO, buffer.data() + written, used - written);
        if (count <= 0)
            return;
        written += static_cast<std::size_t>(count);
    }
}

} // namespace RunOutput
