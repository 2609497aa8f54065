#ifndef PROCESS_H
#define PROCESS_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Where a stream of a process goes.
enum class Stream
{
    captured,
    closed,     // there is no such stream
    brokenPipe, // a pipe that nobody reads
    fullDevice, // every write fails
};

struct ProcessOptions
{
    std::string input;
    Stream output = Stream::captured;
    Stream error = Stream::captured;
    std::string folder;                                           // where it runs; here when empty
    std::vector<std::pair<std::string, std::string>> environment; // set on top of ours
    std::optional<std::size_t> fileSizeLimit;                     // bytes that a file may grow to
};

struct ProcessResult
{
    int exitCode = -1; // minus the number of the signal that ended it
    std::string output;
    std::string error;
    std::size_t peakMemory = 0; // the most bytes that it had in memory at once
};

/// Runs a function in a child process of its own, where limits and rights may be given up. Gives what the
/// function returns, 125 when it raises an exception, or minus the number of the signal that ended it.
int runInChild(const std::function<int()>& function);

/// The rights of a user that owns nothing; as they are when the test has no right to change them.
void dropRights();

/// From now on, in this process, no file grows beyond so many bytes.
void limitFileSize(std::size_t bytes);

/// Runs a program to its end. A program without a slash is looked for on PATH; one that cannot be started
/// has the exit code 127.
ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options = {});

/// The path of another program of the same build: all stand in one folder.
std::string builtProgram(const std::string& name);

#endif
