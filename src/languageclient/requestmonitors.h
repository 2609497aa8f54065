#ifndef REQUESTMONITORS_H
#define REQUESTMONITORS_H

#include "languageclient/lsprequestmonitor.h"
#include "languageclient/records/completion.h"
#include "languageclient/records/hover.h"
#include "languageclient/records/initialize.h"
#include "languageclient/records/semantictokens.h"
#include "languageclient/records/signaturehelp.h"
#include "languageclient/records/symbols.h"

/// What each request is answered with.
namespace Halvorin::LSP {

using Nothing = std::monostate;

using LSPInitializeMonitor = LSPRequestMonitor<LSPInitializeResult>;
using LSPShutdownMonitor = LSPRequestMonitor<Nothing>;
using LSPCompletionMonitor = LSPRequestMonitor<Nothing, LSPCompletionList, std::vector<LSPCompletionItem>>;
using LSPCompletionItemResolveMonitor = LSPRequestMonitor<LSPCompletionItem>;
using LSPDocumentSymbolMonitor =
    LSPRequestMonitor<Nothing, std::vector<LSPSymbolInformation>, std::vector<LSPDocumentSymbol>>;
using LSPHoverMonitor = LSPRequestMonitor<Nothing, LSPHover>;
using LSPSemanticTokensMonitor = LSPRequestMonitor<Nothing, LSPSemanticTokens>;
using LSPSignatureHelpMonitor = LSPRequestMonitor<Nothing, LSPSignatureHelp>;

} // namespace Halvorin::LSP

#endif
