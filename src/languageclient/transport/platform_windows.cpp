#include "languageclient/transport/platform.h"

#include <windows.h>

namespace Halvorin::LSP::Platform {

// Winsock acknowledges a lone segment late, too, but has no option for one socket.
void acknowledgeAtOnce(qintptr) {}

void leadProcessGroup(qint64) {} // there is no step between the making of a process and its program

void killProcessGroup(qint64 process)
{
    const HANDLE handle = ::OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(process));
    if (handle == nullptr)
        return;
    ::TerminateProcess(handle, 1);
    ::CloseHandle(handle);
}

} // namespace Halvorin::LSP::Platform
