#include "endingsignals.h"

#include "HalvCore/temporaryfile.h"

#include <csignal>

namespace {

/// Ends the program as the signal would have done.
void removeFilesAndEnd(int signal)
{
    Halvorin::System::TemporaryFile::removeAll();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

void cleanUpOnEndingSignals()
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGXCPU}) {
        if (std::signal(signal, removeFilesAndEnd) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as whoever started the program wants it
    }
}
