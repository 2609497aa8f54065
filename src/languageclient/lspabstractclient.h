#ifndef LSPABSTRACTCLIENT_H
#define LSPABSTRACTCLIENT_H

#include "halvwidgetsexport.h"
#include "languageclient/lspclientstatus.h"
#include "languageclient/messagequeue.h"
#include "languageclient/records/clientcapabilities.h"
#include "languageclient/records/configuration.h"
#include "languageclient/records/documents.h"
#include "languageclient/records/servercapabilities.h"
#include "languageclient/records/typedmessages.h"
#include "languageclient/requestmonitors.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QObject>
#include <QUrl>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QTcpServer;
class QTcpSocket;

namespace Halvorin::LSP {

class FrameReader;
class LSPWorkspaceSettings;
class ServerProcess;

/// A client of one language server, by the Language Server Protocol 3.17. The client listens on a port of
/// this machine, starts the server with "--socket=" and the port, and the server connects.
///
///     LSPPythonClient client(nullptr);
///     client.start(L"/usr/bin/pyright-langserver");
///     client.didOpen(uri, LSPLanguageId::Python, 1, text);          // waits until the server is there
///     LSPHoverMonitor* hover = client.hover(LSPHoverParams(document, position));
///     QObject::connect(hover, &LSPHoverMonitor::responseReady, ...); // then hover->result(),
///     hover->deleteLater()
///
/// Everything runs on the thread of the client's event loop, and nothing waits or times out: a message goes
/// out when the status is the one that it requires, and stands in a queue before and for ever after.
/// deleteLater() on a client that is ready shuts the server down in order and deletes the client when its
/// process has ended; a second deleteLater(), and the destructor, do not wait for that: the process is then
/// killed. A handler of any signal may delete the client, but for those that come amid its operations:
/// messageQueued, messageSent. An exception that a handler of statusChanged, messageSent, serverDisconnected
/// or of what the server sends lets out is logged.
///
/// To add an operation: its records, its monitor in requestmonitors.h, and two lines here and in
/// lspclientrequests.cpp.
class HALVWIDGETS_EXPORT LSPAbstractClient : public QObject
{
    Q_OBJECT

public:
    /// Listens at once. When that fails it is logged, and the client lives on without ever meeting a server.
    explicit LSPAbstractClient(QObject* parent = nullptr);
    ~LSPAbstractClient() override;
    bool event(QEvent* event) override;

    /// What the client tells the server that it can do.
    virtual LSPClientCapabilities clientCapabilities() const = 0;
    /// The setting that the item asks for by its section; JSON null without a section or a setting.
    virtual QJsonValue configurationValue(const LSPConfigurationItem& item) const;
    /// Begins the handshake; called when a server has connected.
    virtual void initialize();

    /// Starts the server's program, which takes the place of an earlier one: the end of that is no longer
    /// told. Whether it works shows only in a connection that comes or not. With `external` nothing is
    /// started: somebody else's server is to connect to the port that was logged.
    void start(const std::wstring& program, bool external = false);

    LSPClientStatus status() const { return m_status; }
    /// Empty until the server has answered "initialize".
    const std::optional<LSPServerCapabilities>& serverCapabilities() const { return m_serverCapabilities; }

    /// Key codes (Qt::Key) that ask for completion, for signature help, and for signature help anew.
    const std::vector<int>& completionTriggerKeys() const { return m_completionTriggerKeys; }
    const std::vector<int>& signatureTriggerKeys() const { return m_signatureTriggerKeys; }
    const std::vector<int>& signatureRetriggerKeys() const { return m_signatureRetriggerKeys; }

    LSPWorkspaceSettings* workspaceSettings() const { return m_workspaceSettings; }
    /// Stores a setting, and tells the server of it.
    void setting(const QString& path, const QJsonValue& value);

    /// Sends a message now if the status is the required one, and keeps it in the queue otherwise. A message
    /// for which there is no connection any more is dropped and logged. Raises std::runtime_error for a
    /// message that lacks keys.
    void send(const LSPMessage& message, LSPClientStatus requiredStatus);

    // Notifications.
    void initialized();
    void didOpen(const LSPTextDocumentItem& document);
    void didOpen(const QUrl& uri, LSPLanguageId languageId, int version, const QString& text);
    void didChange(const LSPDidChangeTextDocumentParams& params);
    void didClose(const LSPTextDocumentIdentifier& document);
    void didChangeConfiguration(const LSPDidChangeConfigurationParams& params);

    // Requests. The monitor is a child of the client; the caller calls deleteLater() on it when done.
    LSPInitializeMonitor* initialize(const LSPInitializeParams& params);
    LSPShutdownMonitor* shutdown();
    LSPCompletionMonitor* completion(const LSPCompletionParams& params);
    LSPCompletionItemResolveMonitor* resolveCompletionItem(const LSPCompletionItem& item);
    LSPDocumentSymbolMonitor* documentSymbol(const LSPDocumentSymbolParams& params);
    LSPHoverMonitor* hover(const LSPHoverParams& params);
    LSPSemanticTokensMonitor* semanticTokens(const LSPSemanticTokensParams& params);
    LSPSignatureHelpMonitor* signatureHelp(const LSPSignatureHelpParams& params);

    // The results of answered requests; they raise as LSPRequestMonitor::result() does.
    static LSPInitializeResult initializeResult(const LSPInitializeMonitor& monitor);
    static Nothing shutdownResult(const LSPShutdownMonitor& monitor);
    static LSPCompletionMonitor::Result completionResult(const LSPCompletionMonitor& monitor);
    static LSPCompletionItem resolveCompletionItemResult(const LSPCompletionItemResolveMonitor& monitor);
    static LSPDocumentSymbolMonitor::Result documentSymbolResult(const LSPDocumentSymbolMonitor& monitor);
    static LSPHoverMonitor::Result hoverResult(const LSPHoverMonitor& monitor);
    static LSPSemanticTokensMonitor::Result semanticTokensResult(const LSPSemanticTokensMonitor& monitor);
    static LSPSignatureHelpMonitor::Result signatureHelpResult(const LSPSignatureHelpMonitor& monitor);

    // Answers to requests of the server.
    void respond(const LSPRequestMessage& request, const QJsonValue& result, LSPClientStatus requiredStatus);
    void respondError(const LSPRequestMessage& request, int code, const QString& message,
                      LSPClientStatus requiredStatus);

Q_SIGNALS:
    void clientReady();
    void logMessage(Halvorin::LSP::LSPMessageType type, const QString& message);
    void messageReceived(const QJsonDocument& json, const QDateTime& timestamp);
    /// The message arrives in its own class with direct connections.
    void messageQueued(const Halvorin::LSP::LSPMessage& message,
                       Halvorin::LSP::LSPClientStatus requiredStatus);
    void messageSent(const QJsonDocument& json, const QDateTime& timestamp);
    void publishDiagnosticsNotification(const Halvorin::LSP::LSPPublishDiagnosticsNotification& notification);
    void responseReceived(const Halvorin::LSP::LSPResponseMessage& response);
    void serverCapabilitiesReceived(const Halvorin::LSP::LSPServerCapabilities& capabilities);
    void serverDisconnected();
    void statusChanged(Halvorin::LSP::LSPClientStatus status);
    void showMessage(Halvorin::LSP::LSPMessageType type, const QString& message);

private:
    // The connection.
    void listen();
    void acceptConnection();
    QTcpSocket* nextConnection();
    void limitPendingConnections();
    void loseConnection();
    void closeConnection();
    void write(const LSPMessage& message);

    // The handshake and the end.
    void setStatus(LSPClientStatus status);
    static void emitGuarded(const std::function<void()>& emission);
    void flushQueue(LSPClientStatus status);
    void takeCapabilities(const LSPInitializeMonitor& monitor);
    void completeHandshake(LSPInitializeMonitor& monitor);
    void completeShutdown(LSPShutdownMonitor& monitor);
    void readTriggerKeys(const LSPServerCapabilities& capabilities);

    // What the server sends.
    void dispatch(const QJsonDocument& document);
    void dispatchMethod(const QString& method, const QJsonObject& message);
    void answerConfiguration(const LSPRequestMessage& request);

    template <class Monitor>
    Monitor* sendRequest(const LSPRequestMessage& request, LSPClientStatus requiredStatus);
    template <class Monitor>
    Monitor* sendRequest(const char* method, const LSPAbstractJsonObject& params);

    QTcpServer* m_server = nullptr;
    QTcpSocket* m_socket = nullptr;
    FrameReader* m_reader = nullptr; // of the socket, and gone with it
    ServerProcess* m_process = nullptr;
    LSPClientStatus m_status = LSPClientStatus::NotConnected;
    int m_nextId = 0;
    MessageQueue m_queue;
    std::optional<LSPServerCapabilities> m_serverCapabilities;
    std::vector<int> m_completionTriggerKeys;
    std::vector<int> m_signatureTriggerKeys;
    std::vector<int> m_signatureRetriggerKeys;
    LSPWorkspaceSettings* m_workspaceSettings;
};

} // namespace Halvorin::LSP

#endif
