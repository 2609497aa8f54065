#ifndef RUNOUTPUT_H
#define RUNOUTPUT_H

#include <string_view>

/// What a run prints, on its way to standard output. It is kept here, not in the stream, so that a signal
/// handler that has to end the process can still deliver it.
namespace RunOutput {

void print(std::string_view text);

/// To call when the run is over.
void flush();

/// Writes what is left. It may be called from a signal handler, and only before the process ends.
void flushInSignalHandler() noexcept;

} // namespace RunOutput

#endif
