#ifndef LSPCLIENTCAPABILITIES_H
#define LSPCLIENTCAPABILITIES_H

#include "languageclient/records/lsprecord.h"

/// What the client can do, as it tells the server in "initialize". A record a feature, and two that hold
/// them.
namespace Halvorin::LSP {

/// About completions.
class LSPCompletionClientCapabilities : public LSPRecord<>
{
public:
    /// About single completions.
    class CompletionItem : public LSPRecord<>
    {
    public:
        /// Which tags of a completion are known.
        class TagSupport : public LSPRecord<>
        {
            LSP_RECORD(TagSupport, LSP_REQUIRED(std::vector<int>, valueSet, setValueSet));
        };

        /// Which keys of a completion may come late, on "completionItem/resolve".
        class ResolveSupport : public LSPRecord<>
        {
            LSP_RECORD(ResolveSupport, LSP_REQUIRED(std::vector<QString>, properties, setProperties));
        };

        /// Which ways to treat white space on insertion are known.
        class InsertTextModeSupport : public LSPRecord<>
        {
            LSP_RECORD(InsertTextModeSupport, LSP_REQUIRED(std::vector<int>, valueSet, setValueSet));
        };

        LSP_RECORD(CompletionItem,
                   LSP_OPTIONAL(bool, snippetSupport, setSnippetSupport),
                   LSP_OPTIONAL(bool, commitCharactersSupport, setCommitCharactersSupport),
                   LSP_OPTIONAL(std::vector<LSPMarkupKind>, documentationFormat, setDocumentationFormat),
                   LSP_OPTIONAL(bool, deprecatedSupport, setDeprecatedSupport),
                   LSP_OPTIONAL(bool, preselectSupport, setPreselectSupport),
                   LSP_OPTIONAL(TagSupport, tagSupport, setTagSupport),
                   LSP_OPTIONAL(bool, insertReplaceSupport, setInsertReplaceSupport),
                   LSP_OPTIONAL(ResolveSupport, resolveSupport, setResolveSupport),
                   LSP_OPTIONAL(InsertTextModeSupport, insertTextModeSupport, setInsertTextModeSupport),
                   LSP_OPTIONAL(bool, labelDetailsSupport, setLabelDetailsSupport));
    };

    /// Which kinds of completions are known.
    class CompletionItemKind : public LSPRecord<>
    {
        LSP_RECORD(CompletionItemKind, LSP_OPTIONAL(std::vector<int>, valueSet, setValueSet));
    };

    /// Which defaults of a list are known.
    class CompletionList : public LSPRecord<>
    {
        LSP_RECORD(CompletionList, LSP_OPTIONAL(std::vector<QString>, itemDefaults, setItemDefaults));
    };

    LSP_RECORD(LSPCompletionClientCapabilities,
               LSP_OPTIONAL(bool, dynamicRegistration, setDynamicRegistration),
               LSP_OPTIONAL(CompletionItem, completionItem, setCompletionItem),
               LSP_OPTIONAL(CompletionItemKind, completionItemKind, setCompletionItemKind),
               LSP_OPTIONAL(bool, contextSupport, setContextSupport),
               LSP_OPTIONAL(int, insertTextMode, setInsertTextMode),
               LSP_OPTIONAL(CompletionList, completionList, setCompletionList));
};

/// About hovers.
class LSPHoverClientCapabilities : public LSPRecord<>
{
    LSP_RECORD(LSPHoverClientCapabilities,
               LSP_OPTIONAL(bool, dynamicRegistration, setDynamicRegistration),
               LSP_OPTIONAL(std::vector<LSPMarkupKind>, contentFormat, setContentFormat));
};

/// About the help on signatures.
class LSPSignatureHelpClientCapabilities : public LSPRecord<>
{
public:
    /// About single signatures.
    class SignatureInformation : public LSPRecord<>
    {
    public:
        /// About their parameters.
        class ParameterInformation : public LSPRecord<>
        {
            LSP_RECORD(ParameterInformation, LSP_OPTIONAL(bool, labelOffsetSupport, setLabelOffsetSupport));
        };

        LSP_RECORD(SignatureInformation,
                   LSP_OPTIONAL(std::vector<LSPMarkupKind>, documentationFormat, setDocumentationFormat),
                   LSP_OPTIONAL(ParameterInformation, parameterInformation, setParameterInformation),
                   LSP_OPTIONAL(bool, activeParameterSupport, setActiveParameterSupport));
    };

    LSP_RECORD(LSPSignatureHelpClientCapabilities,
               LSP_OPTIONAL(bool, dynamicRegistration, setDynamicRegistration),
               LSP_OPTIONAL(SignatureInformation, signatureInformation, setSignatureInformation),
               LSP_OPTIONAL(bool, contextSupport, setContextSupport));
};

/// About the symbols of a document.
class LSPDocumentSymbolClientCapabilities : public LSPRecord<>
{
public:
    /// Which kinds of symbols are known.
    class SymbolKind : public LSPRecord<>
    {
        LSP_RECORD(SymbolKind, LSP_OPTIONAL(std::vector<int>, valueSet, setValueSet));
    };

    /// Which tags of a symbol are known.
    class TagSupport : public LSPRecord<>
    {
        LSP_RECORD(TagSupport, LSP_REQUIRED(std::vector<int>, valueSet, setValueSet));
    };

    LSP_RECORD(LSPDocumentSymbolClientCapabilities,
               LSP_OPTIONAL(bool, dynamicRegistration, setDynamicRegistration),
               LSP_OPTIONAL(SymbolKind, symbolKind, setSymbolKind),
               LSP_OPTIONAL(bool, hierarchicalDocumentSymbolSupport, setHierarchicalDocumentSymbolSupport),
               LSP_OPTIONAL(TagSupport, tagSupport, setTagSupport),
               LSP_OPTIONAL(bool, labelSupport, setLabelSupport));
};

/// About semantic tokens.
class LSPSemanticTokensClientCapabilities : public LSPRecord<>
{
public:
    /// Which requests the client makes.
    class Requests : public LSPRecord<>
    {
    public:
        /// How it asks for the tokens of a whole document.
        class Full : public LSPRecord<>
        {
            LSP_RECORD(Full, LSP_OPTIONAL(bool, delta, setDelta));
        };

        using AnyRange = std::variant<bool, QJsonObject>;
        using AnyFull = std::variant<bool, Full>;

        LSP_RECORD(Requests, LSP_OPTIONAL(AnyRange, range, setRange), LSP_OPTIONAL(AnyFull, full, setFull));
    };

    LSP_RECORD(LSPSemanticTokensClientCapabilities,
               LSP_OPTIONAL(bool, dynamicRegistration, setDynamicRegistration),
               LSP_REQUIRED(std::vector<QString>, formats, setFormats),
               LSP_REQUIRED(std::vector<LSPSemanticTokenModifier>, tokenModifiers, setTokenModifiers),
               LSP_REQUIRED(std::vector<LSPSemanticTokenType>, tokenTypes, setTokenTypes),
               LSP_REQUIRED(Requests, requests, setRequests),
               LSP_OPTIONAL(bool, overlappingTokenSupport, setOverlappingTokenSupport),
               LSP_OPTIONAL(bool, multilineTokenSupport, setMultilineTokenSupport),
               LSP_OPTIONAL(bool, serverCancelSupport, setServerCancelSupport),
               LSP_OPTIONAL(bool, augmentsSyntaxTokens, setAugmentsSyntaxTokens));
};

/// About documents.
class LSPTextDocumentClientCapabilities : public LSPRecord<>
{
    LSP_RECORD(LSPTextDocumentClientCapabilities,
               LSP_OPTIONAL(LSPCompletionClientCapabilities, completion, setCompletion),
               LSP_OPTIONAL(LSPHoverClientCapabilities, hover, setHover),
               LSP_OPTIONAL(LSPSignatureHelpClientCapabilities, signatureHelp, setSignatureHelp),
               LSP_OPTIONAL(LSPDocumentSymbolClientCapabilities, documentSymbol, setDocumentSymbol),
               LSP_OPTIONAL(LSPSemanticTokensClientCapabilities, semanticTokens, setSemanticTokens));
};

/// All of them.
class LSPClientCapabilities : public LSPRecord<>
{
public:
    /// About the workspace.
    class Workspace : public LSPRecord<>
    {
        LSP_RECORD(Workspace, LSP_OPTIONAL(bool, configuration, setConfiguration));
    };

    LSP_RECORD(LSPClientCapabilities,
               LSP_OPTIONAL(Workspace, workspace, setWorkspace),
               LSP_OPTIONAL(LSPTextDocumentClientCapabilities, textDocument, setTextDocument));
};

} // namespace Halvorin::LSP

#endif
