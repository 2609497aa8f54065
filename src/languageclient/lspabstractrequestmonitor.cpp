#include "languageclient/lspabstractrequestmonitor.h"

#include "languageclient/lspabstractclient.h"

namespace Halvorin::LSP {

LSPAbstractRequestMonitor::LSPAbstractRequestMonitor(int requestId, LSPAbstractClient* client)
    : QObject(client), m_requestId(requestId)
{
    connect(client, &LSPAbstractClient::responseReceived, this, &LSPAbstractRequestMonitor::take);
}

void LSPAbstractRequestMonitor::take(const LSPResponseMessage& response)
{
    // Compared as the number that it is: whatever is no number, or no whole one, would read as 0.
    const QJsonValue id = response.toJson().value(QLatin1String("id"));
    if (!id.isDouble() || id.toDouble() != m_requestId)
        return;
    m_response = response;
    Q_EMIT responseReady();
}

} // namespace Halvorin::LSP
