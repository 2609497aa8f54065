#include "endingsignals.h"

#include "HalvCore/temporaryfile.h"

#include <array>
#include <csignal>

namespace {

/// Ends the program as the signal would have done.
void removeFilesAndEnd(int signal)
{
    Halvorin::System::TemporaryFile::removeAll();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Those that end a program unless it says otherwise and that are no fault of its own: a fault leaves
/// everything as it stands, for whoever looks into it.
constexpr std::array endingSignals{SIGHUP,  SIGINT,    SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2,  SIGALRM,
                                   SIGXCPU, SIGVTALRM, SIGPROF, SIGPOLL, SIGPWR,  SIGSTKFLT};

void cleanUpOn(int signal)
{
    if (std::signal(signal, removeFilesAndEnd) == SIG_IGN)
        std::signal(signal, SIG_IGN); // as whoever started the program wants it
}

} // namespace

void cleanUpOnEndingSignals()
{
    for (const int signal : endingSignals)
        cleanUpOn(signal);
    for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal)
        cleanUpOn(signal);
}
