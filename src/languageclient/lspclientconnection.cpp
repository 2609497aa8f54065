// The connection of LSPAbstractClient: the port, the server's process, the socket, and what is written to it.

#include "languageclient/lspabstractclient.h"
#include "languageclient/transport/framereader.h"
#include "languageclient/transport/framewriter.h"
#include "languageclient/transport/logging.h"
#include "languageclient/transport/promptacknowledgement.h"
#include "languageclient/transport/serverprocess.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>

namespace Halvorin::LSP {

using enum LSPClientStatus;

namespace {

using System::MessageSeverity;

/// A server that has lost its client should end by itself. This is the time that it has for it.
constexpr std::chrono::seconds timeToEnd(2);

void logDropped(const LSPMessage& message)
{
    const QString method = message.value(QLatin1String("method")).toString(QStringLiteral("an answer"));
    log(MessageSeverity::warning, serverChannel,
        QStringLiteral("no connection to the server, message dropped: ") + method);
}

} // namespace

void LSPAbstractClient::listen()
{
    m_server = new QTcpServer(this);
    if (!m_server->listen(QHostAddress::LocalHost, 0)) {
        log(MessageSeverity::warning, serverChannel,
            QStringLiteral("Language client failed to start: ") + m_server->errorString());
        return;
    }
    connect(m_server, &QTcpServer::newConnection, this, &LSPAbstractClient::acceptConnection);
    log(MessageSeverity::info, serverChannel,
        QStringLiteral("Language client started on port: ") + QString::number(m_server->serverPort()));
}

void LSPAbstractClient::start(const std::wstring& program, bool external)
{
    if (external)
        return;
    auto* process = new ServerProcess(this);
    m_process = process;
    connect(process, &QObject::destroyed, this, [this, process] {
        if (m_process == process)
            m_process = nullptr;
    });
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, [this, process] {
        if (m_process == process) // not one that another has taken the place of
            setStatus(Exited);
    });
    process->startServer(QString::fromStdWString(program), m_server->serverPort());
}

void LSPAbstractClient::acceptConnection()
{
    if (m_status == Exited && m_process != nullptr && m_process->state() == QProcess::NotRunning)
        return; // the last sign of a server that has ended already
    if (m_socket != nullptr) {
        log(MessageSeverity::warning, serverChannel,
            QStringLiteral("Multiple incoming connections unsupported"));
        limitPendingConnections();
        return;
    }
    m_socket = nextConnection();
    if (m_socket == nullptr)
        return;
    acknowledgePromptly(*m_socket);
    m_reader = new FrameReader(*m_socket, [this](const QJsonDocument& document, const QDateTime& timestamp) {
        Q_EMIT messageReceived(document, timestamp);
    });
    connect(m_socket, &QTcpSocket::disconnected, this, &LSPAbstractClient::loseConnection);
    const QPointer<LSPAbstractClient> self(this);
    const QPointer<QTcpSocket> socket(m_socket);
    setStatus(Connected);
    if (self && socket && socket == m_socket) // a handler may have deleted the client, or let the server go
        initialize();
}

/// What was pending while another server was connected may be gone by now, and would never say so again.
QTcpSocket* LSPAbstractClient::nextConnection()
{
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        if (socket->state() == QAbstractSocket::ConnectedState) {
            socket->setReadBufferSize(0);
            return socket;
        }
        delete socket;
    }
    return nullptr;
}

/// Nobody reads from a connection that is pending: what it sends is to wait outside of our memory.
void LSPAbstractClient::limitPendingConnections()
{
    constexpr qint64 enough = 4096;
    for (QTcpSocket* socket : m_server->findChildren<QTcpSocket*>()) {
        if (socket != m_socket)
            socket->setReadBufferSize(enough);
    }
}

void LSPAbstractClient::loseConnection()
{
    m_reader->retire();
    m_reader = nullptr;
    m_socket = nullptr;
    if (m_status >= Ready && m_process != nullptr) {
        QTimer::singleShot(timeToEnd, m_process, [this, process = m_process] {
            if (m_socket == nullptr) // it has not connected anew
                process->end();
        });
    }
    emitGuarded([this] { Q_EMIT serverDisconnected(); });
}

void LSPAbstractClient::closeConnection()
{
    if (m_socket == nullptr || m_reader == nullptr || !m_reader->isReading())
        return; // it goes with the children
    m_socket->disconnect(this);
    m_reader->retire();
    m_socket->abort();
}

void LSPAbstractClient::write(const LSPMessage& message)
{
    const QJsonDocument document(message.toJson());
    if (m_socket == nullptr)
        return logDropped(message);
    const QByteArray text = document.toJson(QJsonDocument::Compact);
    emitGuarded([this, &document] { Q_EMIT messageSent(document, QDateTime::currentDateTime()); });
    if (isLogged(MessageSeverity::diagnostic))
        log(MessageSeverity::diagnostic, serverChannel, "sending message: " + text.toStdString());
    if (m_socket == nullptr) // a handler has run an event loop
        return logDropped(message);
    writeFrame(*m_socket, text);
}

} // namespace Halvorin::LSP
