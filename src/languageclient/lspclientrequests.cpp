// The typed operations of LSPAbstractClient: each is a method, a record, and the status that it requires.

#include "languageclient/lspabstractclient.h"

#include <memory>

namespace Halvorin::LSP {

using enum LSPClientStatus;

namespace {

LSPNotificationMessage notification(const char* method, const LSPAbstractJsonObject& params)
{
    return LSPNotificationMessage(QLatin1String(method), params);
}

} // namespace

template <class Monitor>
Monitor* LSPAbstractClient::sendRequest(const LSPRequestMessage& request, LSPClientStatus requiredStatus)
{
    auto monitor = std::make_unique<Monitor>(request.id(), this);
    send(request, requiredStatus);
    return monitor.release(); // the client owns it
}

template <class Monitor>
Monitor* LSPAbstractClient::sendRequest(const char* method, const LSPAbstractJsonObject& params)
{
    return sendRequest<Monitor>(LSPRequestMessage(m_nextId++, QLatin1String(method), params), Ready);
}

// Notifications.

void LSPAbstractClient::initialized()
{
    LSPNotificationMessage message(QLatin1String("initialized"));
    message.setParams(QJsonObject()); // the protocol wants params even where there is nothing to say
    send(message, Initializing);
}

void LSPAbstractClient::didOpen(const LSPTextDocumentItem& document)
{
    send(notification("textDocument/didOpen", LSPDidOpenTextDocumentParams(document)), Ready);
}

void LSPAbstractClient::didOpen(const QUrl& uri, LSPLanguageId languageId, int version, const QString& text)
{
    didOpen(LSPTextDocumentItem(uri, languageId, version, text));
}

void LSPAbstractClient::didChange(const LSPDidChangeTextDocumentParams& params)
{
    send(notification("textDocument/didChange", params), Ready);
}

void LSPAbstractClient::didClose(const LSPTextDocumentIdentifier& document)
{
    send(notification("textDocument/didClose", LSPDidCloseTextDocumentParams(document)), Ready);
}

void LSPAbstractClient::didChangeConfiguration(const LSPDidChangeConfigurationParams& params)
{
    send(notification("workspace/didChangeConfiguration", params), Ready);
}

// Requests.

LSPInitializeMonitor* LSPAbstractClient::initialize(const LSPInitializeParams& params)
{
    return sendRequest<LSPInitializeMonitor>(
        LSPRequestMessage(m_nextId++, QLatin1String("initialize"), params), Connected);
}

LSPShutdownMonitor* LSPAbstractClient::shutdown()
{
    auto* monitor =
        sendRequest<LSPShutdownMonitor>(LSPRequestMessage(m_nextId++, QLatin1String("shutdown")), Ready);
    connect(monitor, &LSPShutdownMonitor::responseReady, this,
            [this, monitor] { completeShutdown(*monitor); });
    setStatus(ShuttingDown);
    return monitor;
}

LSPCompletionMonitor* LSPAbstractClient::completion(const LSPCompletionParams& params)
{
    return sendRequest<LSPCompletionMonitor>("textDocument/completion", params);
}

LSPCompletionItemResolveMonitor* LSPAbstractClient::resolveCompletionItem(const LSPCompletionItem& item)
{
    return sendRequest<LSPCompletionItemResolveMonitor>(LSPCompletionItemResolveRequest(m_nextId++, item),
                                                        Ready);
}

LSPDocumentSymbolMonitor* LSPAbstractClient::documentSymbol(const LSPDocumentSymbolParams& params)
{
    return sendRequest<LSPDocumentSymbolMonitor>("textDocument/documentSymbol", params);
}

LSPHoverMonitor* LSPAbstractClient::hover(const LSPHoverParams& params)
{
    return sendRequest<LSPHoverMonitor>("textDocument/hover", params);
}

LSPSemanticTokensMonitor* LSPAbstractClient::semanticTokens(const LSPSemanticTokensParams& params)
{
    return sendRequest<LSPSemanticTokensMonitor>(LSPSemanticTokensRequest(m_nextId++, params), Ready);
}

LSPSignatureHelpMonitor* LSPAbstractClient::signatureHelp(const LSPSignatureHelpParams& params)
{
    return sendRequest<LSPSignatureHelpMonitor>("textDocument/signatureHelp", params);
}

// Results.

LSPInitializeResult LSPAbstractClient::initializeResult(const LSPInitializeMonitor& monitor)
{
    return monitor.result();
}

Nothing LSPAbstractClient::shutdownResult(const LSPShutdownMonitor& monitor)
{
    return monitor.result();
}

LSPCompletionMonitor::Result LSPAbstractClient::completionResult(const LSPCompletionMonitor& monitor)
{
    return monitor.result();
}

LSPCompletionItem
LSPAbstractClient::resolveCompletionItemResult(const LSPCompletionItemResolveMonitor& monitor)
{
    return monitor.result();
}

LSPDocumentSymbolMonitor::Result
LSPAbstractClient::documentSymbolResult(const LSPDocumentSymbolMonitor& monitor)
{
    return monitor.result();
}

LSPHoverMonitor::Result LSPAbstractClient::hoverResult(const LSPHoverMonitor& monitor)
{
    return monitor.result();
}

LSPSemanticTokensMonitor::Result
LSPAbstractClient::semanticTokensResult(const LSPSemanticTokensMonitor& monitor)
{
    return monitor.result();
}

LSPSignatureHelpMonitor::Result LSPAbstractClient::signatureHelpResult(const LSPSignatureHelpMonitor& monitor)
{
    return monitor.result();
}

// Answers.

void LSPAbstractClient::respond(const LSPRequestMessage& request, const QJsonValue& result,
                                LSPClientStatus requiredStatus)
{
    send(LSPResponseMessage(request, result), requiredStatus);
}

void LSPAbstractClient::respondError(const LSPRequestMessage& request, int code, const QString& message,
                                     LSPClientStatus requiredStatus)
{
    send(LSPResponseMessage(request, LSPResponseError(code, message)), requiredStatus);
}

} // namespace Halvorin::LSP
