#ifndef HALVCORE_HELDSIGNALS_H
#define HALVCORE_HELDSIGNALS_H

#include <csignal>

namespace Halvorin::System {

/// As long as this is there, signals wait: a handler that ends the process finds either nothing or all done
/// of what stands within. For a few system calls only, and none that may wait for somebody else. Holds for
/// the calling thread: in a process of several, another may still run the handler.
class HeldSignals
{
public:
    HeldSignals()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};

} // namespace Halvorin::System

#endif
