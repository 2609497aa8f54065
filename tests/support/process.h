#ifndef PROCESS_H
#define PROCESS_H

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
};

struct ProcessResult
{
    int exitCode = -1; // minus the number of the signal that ended it
    std::string output;
    std::string error;
};

/// Runs a program to its end. A program without a slash is looked for on PATH; one that cannot be started
/// has the exit code 127.
ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options = {});

#endif
