#include "peer.h"

#include "sources.h"

#include <stdexcept>

Peer::Peer()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral("node"), QStringList(QStringLiteral(PEER_PROGRAM)) + sources().files);
    awaitAnswer();
}

Peer::~Peer()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void Peer::run(const char* how)
{
    m_process.write(how);
    m_process.write("\n");
    awaitAnswer();
}

void Peer::awaitAnswer()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(120'000))
            throw std::runtime_error(
                "the other engine does not run: scripts/install-grammar-peer installs it");
    }
    m_process.readLine();
}
