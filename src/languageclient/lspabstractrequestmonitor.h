#ifndef LSPABSTRACTREQUESTMONITOR_H
#define LSPABSTRACTREQUESTMONITOR_H

#include "halvwidgetsexport.h"
#include "languageclient/records/messages.h"

#include <QObject>
#include <optional>

namespace Halvorin::LSP {

class LSPAbstractClient;

/// Waits for the answer to one request. A child of its client; whoever asked deletes it (deleteLater) when
/// the answer was read, or earlier when it is no longer wanted. A request that is never answered waits as
/// long as the client lives.
class HALVWIDGETS_EXPORT LSPAbstractRequestMonitor : public QObject
{
    Q_OBJECT

public:
    LSPAbstractRequestMonitor(int requestId, LSPAbstractClient* client);

    int requestId() const { return m_requestId; }

    /// The last answer with the id of the request; empty until there is one.
    const std::optional<LSPResponseMessage>& response() const { return m_response; }

Q_SIGNALS:
    /// An answer has come, also an error. A server that answers twice is heard twice.
    void responseReady();

private:
    void take(const LSPResponseMessage& response);

    int m_requestId;
    std::optional<LSPResponseMessage> m_response;
};

} // namespace Halvorin::LSP

#endif
