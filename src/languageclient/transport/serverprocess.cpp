#include "languageclient/transport/serverprocess.h"

#include "languageclient/transport/platform.h"

#include <QCoreApplication>
#include <QDebug>

namespace Halvorin::LSP {

ServerProcess::ServerProcess(QObject* parent)
    : QProcess(parent), m_application(QCoreApplication::applicationPid())
{
    connect(this, &QProcess::stateChanged, this, [this](ProcessState state) {
        if (state != NotRunning)
            return;
        end();       // it may have left others in its group
        m_group = 0; // the number may become another's
    });
}

ServerProcess::~ServerProcess()
{
    const bool wereBlocked = blockSignals(true); // nobody is to hear of the end of an object that is going
    end();
    waitForFinished(); // it was killed: only the system's bookkeeping is waited for
    blockSignals(wereBlocked);
}

void ServerProcess::startServer(const QString& program, quint16 port)
{
    start(program, {QStringLiteral("--socket=") + QString::number(port)}, ReadWrite);
    if (state() == NotRunning)
        return; // it could not even be tried
    m_group = processId();
    if (const QByteArray output = readAllStandardOutput(); !output.isEmpty())
        qDebug() << output;
    // Nobody reads on, and a talkative server must not fill the memory.
    closeReadChannel(StandardOutput);
    closeReadChannel(StandardError);
}

void ServerProcess::end()
{
    if (m_group > 0)
        Platform::killProcessGroup(m_group);
    kill(); // it may not lead its group yet
}

void ServerProcess::setupChildProcess()
{
    Platform::leadProcessGroup(m_application);
}

} // namespace Halvorin::LSP
