#include "languageclient/records/typedmessages.h"

namespace Halvorin::LSP {

namespace {

/// The record under "params", empty where there is none.
template <class Record>
Record paramsOf(const LSPMessage& message)
{
    return LSPRequired<Record>::read(message.value(QLatin1String("params")));
}

} // namespace

LSPCompletionItemResolveRequest::LSPCompletionItemResolveRequest(int id, const LSPCompletionItem& item)
{
    setId(id);
    setMethod(QLatin1String("completionItem/resolve"));
    setParams(item.toJson());
}

LSPSemanticTokensRequest::LSPSemanticTokensRequest(int id, const LSPSemanticTokensParams& params)
{
    setId(id);
    setMethod(QLatin1String("textDocument/semanticTokens/full"));
    setParams(params.toJson());
}

LSPConfigurationParams LSPConfigurationRequest::configurationParams() const
{
    return paramsOf<LSPConfigurationParams>(*this);
}

LSPPublishDiagnosticsParams LSPPublishDiagnosticsNotification::diagnosticsParams() const
{
    return paramsOf<LSPPublishDiagnosticsParams>(*this);
}

} // namespace Halvorin::LSP
