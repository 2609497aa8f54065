#include "languageclient/lspabstractclient.h"

#include "languageclient/lspworkspacesettings.h"
#include "languageclient/serverlog.h"
#include "languageclient/transport/logging.h"
#include "languageclient/transport/serverprocess.h"
#include "languageclient/triggerkeys.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <exception>

namespace Halvorin::LSP {

using enum LSPClientStatus;

namespace {

void registerSignalTypes()
{
    qRegisterMetaType<LSPMessageType>("Halvorin::LSP::LSPMessageType");
    qRegisterMetaType<LSPMessage>("Halvorin::LSP::LSPMessage");
    qRegisterMetaType<LSPClientStatus>("Halvorin::LSP::LSPClientStatus");
    qRegisterMetaType<LSPPublishDiagnosticsNotification>("Halvorin::LSP::LSPPublishDiagnosticsNotification");
    qRegisterMetaType<LSPResponseMessage>("Halvorin::LSP::LSPResponseMessage");
    qRegisterMetaType<LSPServerCapabilities>("Halvorin::LSP::LSPServerCapabilities");
    qRegisterMetaType<QProcess::ExitStatus>("QProcess::ExitStatus");
}

} // namespace

LSPAbstractClient::LSPAbstractClient(QObject* parent)
    : QObject(parent), m_workspaceSettings(new LSPWorkspaceSettings(this))
{
    registerSignalTypes();
    // These handlers of the client's own come before everybody else's.
    connect(this, &LSPAbstractClient::messageQueued, this,
            [this](const LSPMessage& message, LSPClientStatus requiredStatus) {
                m_queue.append(message, requiredStatus);
            });
    connect(this, &LSPAbstractClient::statusChanged, this, &LSPAbstractClient::flushQueue);
    connect(this, &LSPAbstractClient::messageReceived, this, &LSPAbstractClient::dispatch);
    connect(this, &LSPAbstractClient::logMessage, this, &logServerMessage);
    connect(this, &LSPAbstractClient::serverCapabilitiesReceived, this, &LSPAbstractClient::readTriggerKeys);
    connect(m_workspaceSettings, &LSPWorkspaceSettings::settingsChanged, this,
            [this](const QJsonObject& tree) {
                didChangeConfiguration(LSPDidChangeConfigurationParams(QJsonValue(tree)));
            });
    listen();
}

LSPAbstractClient::~LSPAbstractClient()
{
    closeConnection();
    delete m_process; // now, not with the children: nothing of the server is to outlive the client
}

bool LSPAbstractClient::event(QEvent* event)
{
    if (event->type() == QEvent::DeferredDelete && m_process != nullptr &&
        m_process->state() != QProcess::NotRunning && m_status == Ready) {
        connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                &QObject::deleteLater);
        shutdown();
        return true;
    }
    return QObject::event(event);
}

QJsonValue LSPAbstractClient::configurationValue(const LSPConfigurationItem& item) const
{
    const QString section = item.section().value_or(QString());
    return section.isEmpty() ? QJsonValue(QJsonValue::Null) : m_workspaceSettings->value(section);
}

void LSPAbstractClient::setting(const QString& path, const QJsonValue& value)
{
    m_workspaceSettings->setValue(path, value);
}

void LSPAbstractClient::initialize()
{
    try {
        const auto process = static_cast<int>(QCoreApplication::applicationPid());
        LSPInitializeMonitor* monitor =
            initialize(LSPInitializeParams(process, nullptr, clientCapabilities()));
        connect(monitor, &LSPInitializeMonitor::responseReady, this,
                [this, monitor] { takeCapabilities(*monitor); });
        connect(monitor, &LSPInitializeMonitor::responseReady, this,
                [this, monitor] { completeHandshake(*monitor); });
        setStatus(Initializing);
    } catch (const std::exception& error) {
        log(System::MessageSeverity::error, clientChannel, QString::fromUtf8(error.what()));
    }
}

void LSPAbstractClient::takeCapabilities(const LSPInitializeMonitor& monitor)
{
    try {
        m_serverCapabilities = monitor.result().capabilities();
    } catch (const std::exception&) {
        return; // the second handler meets the same, and logs it
    }
    emitGuarded([this] { Q_EMIT serverCapabilitiesReceived(*m_serverCapabilities); });
}

void LSPAbstractClient::completeHandshake(LSPInitializeMonitor& monitor)
{
    monitor.disconnect(this); // a second answer changes nothing
    monitor.deleteLater();
    if (m_status != Initializing)
        return; // the server has ended since it answered
    const QPointer<LSPAbstractClient> self(this);
    try {
        initializeResult(monitor); // raises what the server has against it
        initialized();
        setStatus(Ready);
        if (self && m_status == Ready) // no handler has deleted the client, or shut it down
            Q_EMIT clientReady();
    } catch (const std::exception& error) {
        log(System::MessageSeverity::error, clientChannel, QString::fromUtf8(error.what()));
    }
}

void LSPAbstractClient::completeShutdown(LSPShutdownMonitor& monitor)
{
    monitor.disconnect(this); // a second answer changes nothing
    monitor.deleteLater();
    if (m_status == Exiting || m_status == Exited)
        return; // "exit" is said once, and not to a server that has ended since it answered
    const QPointer<LSPAbstractClient> self(this);
    setStatus(Exiting);
    if (self) // no handler has deleted the client
        send(LSPNotificationMessage(QLatin1String("exit")), Exiting);
}

void LSPAbstractClient::readTriggerKeys(const LSPServerCapabilities& capabilities)
{
    const auto completion = capabilities.completionProvider().value_or(LSPCompletionOptions());
    const auto signature = capabilities.signatureHelpProvider().value_or(LSPSignatureHelpOptions());
    const auto keysOf = [](const std::optional<std::vector<QString>>& texts) {
        return texts ? triggerKeys(*texts) : std::vector<int>();
    };
    m_completionTriggerKeys = keysOf(completion.triggerCharacters());
    m_signatureTriggerKeys = keysOf(signature.triggerCharacters());
    m_signatureRetriggerKeys = keysOf(signature.retriggerCharacters());
}

void LSPAbstractClient::send(const LSPMessage& message, LSPClientStatus requiredStatus)
{
    if (const QStringList missing = message.missingParameters(); !missing.isEmpty())
        throw std::runtime_error("message has errors: " + missing.join(QLatin1Char('\n')).toStdString());
    if (requiredStatus == m_status)
        write(message);
    else
        Q_EMIT messageQueued(message, requiredStatus);
}

void LSPAbstractClient::setStatus(LSPClientStatus status)
{
    if (m_status == status)
        return;
    m_status = status;
    emitGuarded([this, status] { Q_EMIT statusChanged(status); });
}

/// An exception of a handler must not reach Qt's event loop, nor keep the client from what it does next.
/// Handlers that come behind the one that threw are not called.
void LSPAbstractClient::emitGuarded(const std::function<void()>& emission)
{
    try {
        emission();
    } catch (const std::exception& error) {
        log(System::MessageSeverity::error, clientChannel, QString::fromUtf8(error.what()));
    } catch (...) {
        log(System::MessageSeverity::error, clientChannel, QStringLiteral("unknown error"));
    }
}

void LSPAbstractClient::flushQueue(LSPClientStatus status)
{
    // Taken out first: sending may put messages into the queue.
    for (QueuedMessage& queued : m_queue.take()) {
        if (queued.requiredStatus == status)
            send(queued.asMessage(), queued.requiredStatus);
        else
            m_queue.append(std::move(queued));
    }
}

} // namespace Halvorin::LSP
