#include "languageclient/transport/platform.h"

#include <csignal>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Halvorin::LSP::Platform {

void acknowledgeAtOnce(qintptr socketDescriptor)
{
    const int on = 1;
    ::setsockopt(static_cast<int>(socketDescriptor), IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
}

void leadProcessGroup(qint64 application)
{
    // Between fork and exec: system calls only.
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != application) // it was gone before it could be watched
        ::_exit(1);
}

void killProcessGroup(qint64 process)
{
    ::kill(-static_cast<pid_t>(process), SIGKILL);
}

} // namespace Halvorin::LSP::Platform
