#include "languageclient/records/completion.h"

#include "recordcase.h"

using namespace Halvorin::LSP;

namespace {

using OfPlace =
    recordcases::Bases<LSPTextDocumentPositionParams, LSPWorkDoneProgressParams, LSPPartialResultParams>;

} // namespace

std::vector<recordcases::RecordCase> recordcases::completionRecords()
{
    return {
        RECORD(LSPCompletionItem,
               Bases<>(),
               MADE_OF(r.label()),
               REQUIRED(label, setLabel, R"("print")"),
               OPTIONAL(labelDetails, setLabelDetails, R"({"detail": "(x: int) "})"),
               OPTIONAL(kind, setKind, "3"),
               OPTIONAL(tags, setTags, "[1]"),
               OPTIONAL(detail, setDetail, R"("builtin")"),
               OPTIONAL(documentation, setDocumentation, DOCUMENTATION),
               OPTIONAL(deprecated, setDeprecated, "true"),
               OPTIONAL(preselect, setPreselect, "false"),
               OPTIONAL(sortText, setSortText, R"("0print")"),
               OPTIONAL(filterText, setFilterText, R"("print")"),
               OPTIONAL(insertText, setInsertText, R"("print($0) ")"),
               OPTIONAL(insertTextFormat, setInsertTextFormat, "2"),
               OPTIONAL(insertTextMode, setInsertTextMode, "1"),
               OPTIONAL(textEdit,
                        setTextEdit,
                        R"({"newText": "a", "range": )" RANGE "}, "
                        R"({"newText": "a", "insert": )" RANGE R"(, "replace": )" RANGE "}"),
               OPTIONAL(textEditText, setTextEditText, R"("print")"),
               OPTIONAL(additionalTextEdits,
                        setAdditionalTextEdits,
                        R"([{"newText": "import os\n", "range": )" RANGE "}]"),
               OPTIONAL(commitCharacters, setCommitCharacters, R"(["(", "."])"),
               OPTIONAL(command, setCommand, ANYTHING),
               OPTIONAL(data, setData, ANYTHING)),
        RECORD(LSPCompletionItemLabelDetails,
               Bases<>(),
               nullptr,
               OPTIONAL(detail, setDetail, R"("(x: int) ")"),
               OPTIONAL(description, setDescription, R"("builtins")")),
        RECORD(LSPCompletionContext,
               Bases<>(),
               MADE_OF(r.triggerKind()),
               REQUIRED(triggerKind, setTriggerKind, "2"),
               OPTIONAL(triggerCharacter, setTriggerCharacter, R"(".")")),
        RECORD(LSPCompletionParams,
               OfPlace(),
               MADE_OF(r.textDocument(), r.position()),
               OPTIONAL(context, setContext, R"({"triggerKind": 1})")),
        RECORD(LSPCompletionList,
               Bases<>(),
               MADE_OF(r.isIncomplete(), *r.items()),
               REQUIRED(isIncomplete, setIncomplete, "true"),
               OPTIONAL(itemDefaults, setItemDefaults, R"({"insertTextFormat": 1})"),
               REQUIRED(items, setItems, R"([{"label": "a"}, {"label": "b"}])")),
        RECORD(LSPCompletionList::ItemDefaults,
               Bases<>(),
               nullptr,
               OPTIONAL(commitCharacters, setCommitCharacters, R"(["("])"),
               OPTIONAL(editRange, setEditRange, RANGE R"(, {"insert": )" RANGE R"(, "replace": )" RANGE "}"),
               OPTIONAL(insertTextFormat, setInsertTextFormat, "1"),
               OPTIONAL(insertTextMode, setInsertTextMode, "2"),
               OPTIONAL(data, setData, ANYTHING)),
        RECORD(LSPCompletionList::ItemDefaults::EditRange,
               Bases<>(),
               MADE_OF(r.insert(), r.replace()),
               REQUIRED(insert, setInsert, RANGE),
               REQUIRED(replace, setReplace, RANGE)),
        RECORD(LSPCompletionOptions,
               Bases<>(),
               nullptr,
               OPTIONAL(triggerCharacters, setTriggerCharacters, R"([".", "["])"),
               OPTIONAL(allCommitCharacters, setAllCommitCharacters, R"(["("])"),
               OPTIONAL(resolveProvider, setResolveProvider, "true"),
               OPTIONAL(completionItem, setCompletionItem, R"({"labelDetailsSupport": true})")),
        RECORD(LSPCompletionOptions::CompletionItem,
               Bases<>(),
               nullptr,
               OPTIONAL(labelDetailsSupport, setLabelDetailsSupport, "true")),
    };
}
