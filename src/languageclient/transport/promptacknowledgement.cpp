#include "languageclient/transport/promptacknowledgement.h"

#include "languageclient/transport/platform.h"

#include <QAbstractSocket>

namespace Halvorin::LSP {

void acknowledgePromptly(QAbstractSocket& socket)
{
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const qintptr descriptor = socket.socketDescriptor();
    const auto acknowledge = [descriptor] { Platform::acknowledgeAtOnce(descriptor); };
    // The signal comes when the socket has read: what acknowledgement is due then leaves at once.
    QObject::connect(&socket, &QIODevice::readyRead, &socket, acknowledge);
    acknowledge();
}

} // namespace Halvorin::LSP
