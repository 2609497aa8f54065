#ifndef LSPSERVERCAPABILITIES_H
#define LSPSERVERCAPABILITIES_H

#include "halvwidgetsexport.h"
#include "languageclient/records/completion.h"
#include "languageclient/records/signaturehelp.h"

#include <QMetaType>

namespace Halvorin::LSP {

/// What the server can do, as it answers "initialize". Typed readers stand for the parts that are used; what
/// else there is can be asked for by name.
class HALVWIDGETS_EXPORT LSPServerCapabilities : public LSPRecord<>
{
public:
    /// In the order of allCapabilities(). To add one: here, and a row in the source file.
    enum class ServerCapability : unsigned
    {
        PositionEncoding,
        TextDocumentSync,
        NotebookDocumentSync,
        CompletionProvider,
        HoverProvider,
        SignatureHelpProvider,
        DeclarationProvider,
        DefinitionProvider,
        TypeDefinitionProvider,
        ImplementationProvider,
        ReferencesProvider,
        DocumentHighlightProvider,
        DocumentSymbolProvider,
        CodeActionProvider,
        CodeLensProvider,
        DocumentLinkProvider,
        ColorProvider,
        DocumentFormattingProvider,
        DocumentRangeFormattingProvider,
        DocumentOnTypeFormattingProvider,
        RenameProvider,
        FoldingRangeProvider,
        ExecuteCommandProvider,
        SelectionRangeProvider,
        LinkedEditingRangeProvider,
        CallHierarchyProvider,
        SemanticTokensProvider,
        MonikerProvider,
        TypeHierarchyProvider,
        InlineValueProvider,
        InlayHintProvider,
        DiagnosticProvider,
        WorkspaceSymbolProvider,
        WorkspaceFolders,
        FileOperationsDidCreate,
        FileOperationsWillCreate,
        FileOperationsDidRename,
        FileOperationsWillRename,
        FileOperationsDidDelete,
        FileOperationsWillDelete,
        Experimental
    };

    LSP_RECORD(LSPServerCapabilities,
               LSP_OPTIONAL(LSPCompletionOptions, completionProvider, setCompletionProvider),
               LSP_OPTIONAL(LSPSignatureHelpOptions, signatureHelpProvider, setSignatureHelpProvider));

public:
    static const std::vector<ServerCapability>& allCapabilities();

    /// The key, with its path where it does not stand at the top; empty for a value outside the enumeration.
    static QString capabilityName(ServerCapability capability);

    /// Whether the server has it; false for a value outside the enumeration.
    bool supports(ServerCapability capability) const;
};

} // namespace Halvorin::LSP

Q_DECLARE_METATYPE(Halvorin::LSP::LSPServerCapabilities)

#endif
