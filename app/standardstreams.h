#ifndef STANDARDSTREAMS_H
#define STANDARDSTREAMS_H

#include <string_view>

/// Standard output and error of a program that never claims to have written what it has not: what cannot be
/// written, because the device is full or nobody reads any more, turns a success into a failure.
namespace StandardStreams {

/// To call before anything is opened. A stream that is missing gets a stand-in that refuses every write, or
/// the next file opened would take its place; and a pipe that nobody reads or a file that may not grow is an
/// error, not a silent end.
void prepare();

void print(std::string_view text);
void printLine(std::string_view line);

/// False once something could not be written: a long output may stop then, since finish() tells of it.
bool takesMore();

/// Text on standard error, as it stands.
void printError(std::string_view text);

/// "halvorin: " and the text, on standard error, as a line without control characters.
void reportError(std::string_view text);

/// The text on standard error, as a line without control characters.
void printErrorLine(std::string_view line);

/// Flushes both streams. Gives the exit code, or that of a failure when a stream took not all of it.
int finish(int exitCode);

} // namespace StandardStreams

#endif
