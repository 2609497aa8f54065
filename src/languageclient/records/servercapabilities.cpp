#include "languageclient/records/servercapabilities.h"

#include <iterator>

namespace Halvorin::LSP {

namespace {

using ServerCapability = LSPServerCapabilities::ServerCapability;

/// What tells that the server has a capability.
enum class Test
{
    /// The key is there, whatever its value.
    Present,
    /// The key is there; a boolean under it says so itself.
    TrueOrOptions,
    /// A number other than 0 under the key, or under "change" in an object under it.
    Synchronises,
    /// The key "positionEncoding" is there. The capability's own is not looked at, and that stays.
    PositionEncodingPresent,
    /// The last key of the path is there, and an object.
    ObjectInPath,
    /// The last key of the path is there.
    PresentInPath
};

struct Row
{
    ServerCapability capability;
    const char* name;
    Test test;
};

using enum LSPServerCapabilities::ServerCapability;
using enum Test;

/// Boolean or options, or options alone, as the Language Server Protocol 3.17 types the key.
constexpr Row rows[] = {
    {PositionEncoding, "positionEncoding", Present},
    {TextDocumentSync, "textDocumentSync", Synchronises},
    {NotebookDocumentSync, "notebookDocumentSync", PositionEncodingPresent},
    {CompletionProvider, "completionProvider", Present},
    {HoverProvider, "hoverProvider", Present},
    {SignatureHelpProvider, "signatureHelpProvider", Present},
    {DeclarationProvider, "declarationProvider", TrueOrOptions},
    {DefinitionProvider, "definitionProvider", TrueOrOptions},
    {TypeDefinitionProvider, "typeDefinitionProvider", TrueOrOptions},
    {ImplementationProvider, "implementationProvider", TrueOrOptions},
    {ReferencesProvider, "referencesProvider", TrueOrOptions},
    {DocumentHighlightProvider, "documentHighlightProvider", TrueOrOptions},
    {DocumentSymbolProvider, "documentSymbolProvider", TrueOrOptions},
    {CodeActionProvider, "codeActionProvider", TrueOrOptions},
    {CodeLensProvider, "codeLensProvider", Present},
    {DocumentLinkProvider, "documentLinkProvider", Present},
    {ColorProvider, "colorProvider", TrueOrOptions},
    {DocumentFormattingProvider, "documentFormattingProvider", TrueOrOptions},
    {DocumentRangeFormattingProvider, "documentRangeFormattingProvider", TrueOrOptions},
    {DocumentOnTypeFormattingProvider, "documentOnTypeFormattingProvider", Present},
    {RenameProvider, "renameProvider", TrueOrOptions},
    {FoldingRangeProvider, "foldingRangeProvider", TrueOrOptions},
    {ExecuteCommandProvider, "executeCommandProvider", Present},
    {SelectionRangeProvider, "selectionRangeProvider", TrueOrOptions},
    {LinkedEditingRangeProvider, "linkedEditingRangeProvider", TrueOrOptions},
    {CallHierarchyProvider, "callHierarchyProvider", TrueOrOptions},
    {SemanticTokensProvider, "semanticTokensProvider", Present},
    {MonikerProvider, "monikerProvider", TrueOrOptions},
    {TypeHierarchyProvider, "typeHierarchyProvider", TrueOrOptions},
    {InlineValueProvider, "inlineValueProvider", TrueOrOptions},
    {InlayHintProvider, "inlayHintProvider", TrueOrOptions},
    {DiagnosticProvider, "diagnosticProvider", Present},
    {WorkspaceSymbolProvider, "workspaceSymbolProvider", TrueOrOptions},
    {WorkspaceFolders, "workspace/workspaceFolders", ObjectInPath},
    {FileOperationsDidCreate, "workspace/fileOperations/didCreate", PresentInPath},
    {FileOperationsWillCreate, "workspace/fileOperations/willCreate", PresentInPath},
    {FileOperationsDidRename, "workspace/fileOperations/didRename", PresentInPath},
    {FileOperationsWillRename, "workspace/fileOperations/willRename", PresentInPath},
    {FileOperationsDidDelete, "workspace/fileOperations/didDelete", PresentInPath},
    {FileOperationsWillDelete, "workspace/fileOperations/willDelete", PresentInPath},
    {Experimental, "experimental", Present},
};

constexpr bool rowsAreInOrder()
{
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (static_cast<std::size_t>(rows[i].capability) != i)
            return false;
    }
    return std::size(rows) == static_cast<std::size_t>(Experimental) + 1;
}
static_assert(rowsAreInOrder());

const Row* rowOf(ServerCapability capability)
{
    const auto index = static_cast<std::size_t>(capability);
    return index < std::size(rows) ? &rows[index] : nullptr;
}

/// The value at the end of a path of keys, undefined where there is none.
QJsonValue valueAt(const QJsonObject& object, const QString& path)
{
    QJsonValue value = object;
    for (const QString& key : path.split(QLatin1Char('/')))
        value = value.toObject().value(key);
    return value;
}

bool synchronises(const QJsonValue& value)
{
    const QJsonValue change = value.isDouble() ? value : value.toObject().value(QLatin1String("change"));
    return change.toDouble() != 0;
}

} // namespace

const std::vector<ServerCapability>& LSPServerCapabilities::allCapabilities()
{
    static const auto all = [] {
        std::vector<ServerCapability> capabilities;
        for (const Row& row : rows)
            capabilities.push_back(row.capability);
        return capabilities;
    }();
    return all;
}

QString LSPServerCapabilities::capabilityName(ServerCapability capability)
{
    const Row* row = rowOf(capability);
    return row ? QString(QLatin1String(row->name)) : QString();
}

bool LSPServerCapabilities::supports(ServerCapability capability) const
{
    const Row* row = rowOf(capability);
    if (!row)
        return false;
    const QJsonValue value = valueAt(toJson(), QLatin1String(row->name));
    switch (row->test) {
    case Present:
    case PresentInPath:
        return !value.isUndefined();
    case TrueOrOptions:
        return value.toBool(!value.isUndefined());
    case Synchronises:
        return synchronises(value);
    case PositionEncodingPresent:
        return contains(QLatin1String("positionEncoding"));
    case ObjectInPath:
        return value.isObject();
    }
    return false;
}

} // namespace Halvorin::LSP
