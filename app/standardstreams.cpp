#include "standardstreams.h"

#include "exitcode.h"
#include "terminaltext.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace StandardStreams {

namespace {

/// The error of the first text that standard output did not take whole. The stream itself keeps no more than
/// that there was one.
int firstOutputFailure = 0;

int lastErrorNumber()
{
    return errno != 0 ? errno : EIO;
}

void write(std::FILE* stream, std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stream) != text.size() && stream == stdout &&
        firstOutputFailure == 0)
        firstOutputFailure = lastErrorNumber();
}

/// 0, or the number of the error that kept the stream from taking everything.
int failureOf(std::FILE* stream)
{
    if (stream == stdout && firstOutputFailure != 0)
        return firstOutputFailure;
    const bool failedBefore = std::ferror(stream) != 0;
    errno = 0;
    if (std::fflush(stream) != 0)
        return lastErrorNumber();
    return failedBefore ? EIO : 0;
}

} // namespace

void prepare()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) < 0)
            ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

void print(std::string_view text)
{
    write(stdout, text);
}

void printLine(std::string_view line)
{
    write(stdout, line);
    write(stdout, "\n");
}

bool takesMore()
{
    return std::ferror(stdout) == 0;
}

void printError(std::string_view text)
{
    std::fflush(stdout); // what was printed before comes before, where both go to one place
    write(stderr, text);
}

void reportError(std::string_view text)
{
    printErrorLine("halvorin: " + std::string(text));
}

void printErrorLine(std::string_view line)
{
    write(stderr, withoutControlCharacters(std::string(line)));
    write(stderr, "\n");
}

int finish(int exitCode)
{
    if (const int number = failureOf(stdout)) {
        reportError("cannot write to standard output: " + std::generic_category().message(number));
        exitCode = exitCode == exitDone ? exitInputHasErrors : exitCode;
    }
    if (failureOf(stderr))
        exitCode = exitCode == exitDone ? exitInputHasErrors : exitCode;
    return exitCode;
}

} // namespace StandardStreams
