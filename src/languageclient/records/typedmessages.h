#ifndef LSPTYPEDMESSAGES_H
#define LSPTYPEDMESSAGES_H

#include "halvwidgetsexport.h"
#include "languageclient/records/completion.h"
#include "languageclient/records/configuration.h"
#include "languageclient/records/diagnostics.h"
#include "languageclient/records/messages.h"
#include "languageclient/records/semantictokens.h"

/// Messages of one method each.
namespace Halvorin::LSP {

/// "completionItem/resolve": asks for what a completion does not hold yet.
class HALVWIDGETS_EXPORT LSPCompletionItemResolveRequest : public LSPRecord<LSPRequestMessage>
{
    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPCompletionItemResolveRequest);

public:
    LSPCompletionItemResolveRequest() = default;
    LSPCompletionItemResolveRequest(int id, const LSPCompletionItem& item);
};

/// "textDocument/semanticTokens/full".
class HALVWIDGETS_EXPORT LSPSemanticTokensRequest : public LSPRecord<LSPRequestMessage>
{
    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPSemanticTokensRequest);

public:
    LSPSemanticTokensRequest() = default;
    LSPSemanticTokensRequest(int id, const LSPSemanticTokensParams& params);
};

/// "workspace/configuration", as it comes from the server.
class HALVWIDGETS_EXPORT LSPConfigurationRequest : public LSPRecord<LSPRequestMessage>
{
    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPConfigurationRequest);

public:
    LSPConfigurationRequest() = default;
    LSPConfigurationParams configurationParams() const;
};

/// "textDocument/publishDiagnostics", as it comes from the server.
class HALVWIDGETS_EXPORT LSPPublishDiagnosticsNotification : public LSPRecord<LSPNotificationMessage>
{
    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPPublishDiagnosticsNotification);

public:
    LSPPublishDiagnosticsNotification() = default;
    LSPPublishDiagnosticsParams diagnosticsParams() const;
};

} // namespace Halvorin::LSP

Q_DECLARE_METATYPE(Halvorin::LSP::LSPPublishDiagnosticsNotification)

#endif
