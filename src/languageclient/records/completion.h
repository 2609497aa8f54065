#ifndef LSPCOMPLETION_H
#define LSPCOMPLETION_H

#include "languageclient/records/edits.h"
#include "languageclient/records/markup.h"
#include "languageclient/records/requestparams.h"

/// "textDocument/completion" and "completionItem/resolve".
namespace Halvorin::LSP {

/// What stands beside the label of a completion.
class LSPCompletionItemLabelDetails : public LSPRecord<>
{
    LSP_RECORD(LSPCompletionItemLabelDetails,
               LSP_OPTIONAL(QString, detail, setDetail),
               LSP_OPTIONAL(QString, description, setDescription));
};

using LSPCompletionEdit = std::variant<LSPTextEdit, LSPInsertReplaceEdit>;

/// One completion that the server offers.
class LSPCompletionItem : public LSPRecord<>
{
    LSP_RECORD(LSPCompletionItem,
               LSP_REQUIRED(QString, label, setLabel),
               LSP_OPTIONAL(LSPCompletionItemLabelDetails, labelDetails, setLabelDetails),
               LSP_OPTIONAL(int, kind, setKind),
               LSP_OPTIONAL(std::vector<int>, tags, setTags),
               LSP_OPTIONAL(QString, detail, setDetail),
               LSP_OPTIONAL(LSPDocumentation, documentation, setDocumentation),
               LSP_OPTIONAL(bool, deprecated, setDeprecated),
               LSP_OPTIONAL(bool, preselect, setPreselect),
               LSP_OPTIONAL(QString, sortText, setSortText),
               LSP_OPTIONAL(QString, filterText, setFilterText),
               LSP_OPTIONAL(QString, insertText, setInsertText),
               LSP_OPTIONAL(int, insertTextFormat, setInsertTextFormat),
               LSP_OPTIONAL(int, insertTextMode, setInsertTextMode),
               LSP_OPTIONAL(LSPCompletionEdit, textEdit, setTextEdit),
               LSP_OPTIONAL(QString, textEditText, setTextEditText),
               LSP_OPTIONAL(std::vector<LSPTextEdit>, additionalTextEdits, setAdditionalTextEdits),
               LSP_OPTIONAL(std::vector<QString>, commitCharacters, setCommitCharacters),
               LSP_OPTIONAL(QJsonValue, command, setCommand),
               LSP_OPTIONAL(QJsonValue, data, setData));
};

/// How a completion was asked for.
class LSPCompletionContext : public LSPRecord<>
{
    LSP_RECORD(LSPCompletionContext,
               LSP_REQUIRED(int, triggerKind, setTriggerKind),
               LSP_OPTIONAL(QString, triggerCharacter, setTriggerCharacter));
};

/// Of "textDocument/completion".
class LSPCompletionParams
    : public LSPRecord<LSPTextDocumentPositionParams, LSPWorkDoneProgressParams, LSPPartialResultParams>
{
    LSP_RECORD(LSPCompletionParams,
               LSP_INHERITED(LSPTextDocumentIdentifier, textDocument, setTextDocument),
               LSP_INHERITED(LSPPosition, position, setPosition),
               LSP_OPTIONAL(LSPCompletionContext, context, setContext));
};

/// Completions, and what holds for each that does not say otherwise.
class LSPCompletionList : public LSPRecord<>
{
public:
    /// What holds for the items that do not say otherwise.
    class ItemDefaults : public LSPRecord<>
    {
    public:
        /// The stretches that go when a completion is inserted or replaces.
        class EditRange : public LSPRecord<>
        {
            LSP_RECORD(EditRange,
                       LSP_REQUIRED(LSPRange, insert, setInsert),
                       LSP_REQUIRED(LSPRange, replace, setReplace));
        };

        using AnyEditRange = std::variant<LSPRange, EditRange>;

        LSP_RECORD(ItemDefaults,
                   LSP_OPTIONAL(std::vector<QString>, commitCharacters, setCommitCharacters),
                   LSP_OPTIONAL(AnyEditRange, editRange, setEditRange),
                   LSP_OPTIONAL(int, insertTextFormat, setInsertTextFormat),
                   LSP_OPTIONAL(int, insertTextMode, setInsertTextMode),
                   LSP_OPTIONAL(QJsonValue, data, setData));
    };

    LSP_RECORD(LSPCompletionList,
               LSP_REQUIRED(bool, isIncomplete, setIncomplete),
               LSP_OPTIONAL_CHECKED(ItemDefaults, itemDefaults, setItemDefaults),
               LSP_REQUIRED_CHECKED(std::vector<LSPCompletionItem>, items, setItems));
};

/// What the server can do about completions.
class LSPCompletionOptions : public LSPRecord<>
{
public:
    /// What it can do about single ones.
    class CompletionItem : public LSPRecord<>
    {
        LSP_RECORD(CompletionItem, LSP_OPTIONAL(bool, labelDetailsSupport, setLabelDetailsSupport));
    };

    LSP_RECORD(LSPCompletionOptions,
               LSP_OPTIONAL(std::vector<QString>, triggerCharacters, setTriggerCharacters),
               LSP_OPTIONAL(std::vector<QString>, allCommitCharacters, setAllCommitCharacters),
               LSP_OPTIONAL(bool, resolveProvider, setResolveProvider),
               LSP_OPTIONAL(CompletionItem, completionItem, setCompletionItem));
};

} // namespace Halvorin::LSP

#endif
