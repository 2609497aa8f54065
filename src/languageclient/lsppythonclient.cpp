#include "languageclient/lsppythonclient.h"

#include "HostSupport/options.h"
#include "languageclient/pythonpathsource.h"

namespace Halvorin::LSP {

namespace {

// Plain text everywhere: what a server has to say goes through the conversion to HTML that popups have.
const std::vector<LSPMarkupKind> plainText{LSPMarkupKind::PlainText};

LSPCompletionClientCapabilities completionCapabilities()
{
    LSPCompletionClientCapabilities::CompletionItem::InsertTextModeSupport insertTextModes;
    insertTextModes.setValueSet({1, 2});

    LSPCompletionClientCapabilities::CompletionItem item;
    item.setSnippetSupport(true);
    item.setCommitCharactersSupport(true);
    item.setDocumentationFormat(plainText);
    item.setDeprecatedSupport(true);
    item.setPreselectSupport(true);
    item.setInsertReplaceSupport(true);
    item.setInsertTextModeSupport(insertTextModes);
    item.setLabelDetailsSupport(true);

    LSPCompletionClientCapabilities completion;
    completion.setDynamicRegistration(true);
    completion.setContextSupport(true);
    completion.setCompletionItem(item);
    return completion;
}

LSPHoverClientCapabilities hoverCapabilities()
{
    LSPHoverClientCapabilities hover;
    hover.setContentFormat(plainText);
    return hover;
}

LSPSignatureHelpClientCapabilities signatureHelpCapabilities()
{
    LSPSignatureHelpClientCapabilities::SignatureInformation information;
    information.setDocumentationFormat(plainText);

    LSPSignatureHelpClientCapabilities signatureHelp;
    signatureHelp.setDynamicRegistration(true);
    signatureHelp.setSignatureInformation(information);
    return signatureHelp;
}

LSPDocumentSymbolClientCapabilities documentSymbolCapabilities()
{
    LSPDocumentSymbolClientCapabilities documentSymbol;
    documentSymbol.setDynamicRegistration(true);
    documentSymbol.setHierarchicalDocumentSymbolSupport(true);
    return documentSymbol;
}

} // namespace

LSPPythonClient::LSPPythonClient(QObject* parent) : LSPAbstractClient(parent)
{
    const QString version = QString::fromUtf8(sp_GetStringOption("python.pythonVersion").tocs());
    if (!version.isEmpty())
        setPythonPath(pythonPathOf(version));
}

LSPClientCapabilities LSPPythonClient::clientCapabilities() const
{
    LSPClientCapabilities::Workspace workspace;
    workspace.setConfiguration(true);

    LSPTextDocumentClientCapabilities textDocument;
    textDocument.setCompletion(completionCapabilities());
    textDocument.setHover(hoverCapabilities());
    textDocument.setSignatureHelp(signatureHelpCapabilities());
    textDocument.setDocumentSymbol(documentSymbolCapabilities());

    LSPClientCapabilities capabilities;
    capabilities.setWorkspace(workspace);
    capabilities.setTextDocument(textDocument);
    return capabilities;
}

void LSPPythonClient::setPythonPath(const QString& path)
{
    setting(QStringLiteral("python.pythonPath"), path);
}

} // namespace Halvorin::LSP
