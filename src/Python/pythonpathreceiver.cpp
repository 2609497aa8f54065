#include "Python/pythonpathreceiver.h"

namespace {

PythonPathReceiver& installedReceiver()
{
    static PythonPathReceiver receiver;
    return receiver;
}

} // namespace

void setPythonPathReceiver(PythonPathReceiver receiver)
{
    installedReceiver() = std::move(receiver);
}

void sendPythonPath(const Halvorin::System::FilePath& interpreter)
{
    if (const PythonPathReceiver& receiver = installedReceiver())
        receiver(interpreter);
}
