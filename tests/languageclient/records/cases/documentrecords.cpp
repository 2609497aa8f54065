#include "languageclient/records/documents.h"
#include "languageclient/records/edits.h"
#include "languageclient/records/markup.h"
#include "languageclient/records/requestparams.h"

#include "recordcase.h"

using namespace Halvorin::LSP;

std::vector<recordcases::RecordCase> recordcases::documentRecords()
{
    return {
        RECORD(LSPPosition, Bases<>(), MADE_OF(r.line(), r.character()),
               REQUIRED(line, setLine, "12"),
               REQUIRED(character, setCharacter, "34")),
        RECORD(LSPRange, Bases<>(), MADE_OF(r.start(), r.end()),
               REQUIRED(start, setStart, POSITION),
               REQUIRED(end, setEnd, POSITION)),
        RECORD(LSPLocation, Bases<>(), MADE_OF(r.uri(), r.range()),
               REQUIRED(uri, setUri, R"("file:///a%20b.py")"),
               REQUIRED(range, setRange, RANGE)),
        RECORD(LSPTextDocumentIdentifier, Bases<>(), MADE_OF(r.uri()),
               REQUIRED(uri, setUri, R"("file:///a.py")")),
        RECORD(LSPVersionedTextDocumentIdentifier, Bases<LSPTextDocumentIdentifier>(),
               MADE_OF(r.uri(), r.version()),
               REQUIRED(version, setVersion, "3")),
        RECORD(LSPTextDocumentItem, Bases<>(), MADE_OF(r.uri(), r.languageId(), r.version(), r.text()),
               REQUIRED(uri, setUri, R"("file:///a.py")"),
               REQUIRED(languageId, setLanguageId, R"("python")"),
               REQUIRED(version, setVersion, "2"),
               REQUIRED(text, setText, R"("print(1)\n")")),
        RECORD(LSPTextDocumentPositionParams, Bases<>(), MADE_OF(r.textDocument(), r.position()),
               REQUIRED(textDocument, setTextDocument, DOCUMENT),
               REQUIRED(position, setPosition, POSITION)),
        RECORD(LSPWorkDoneProgressParams, Bases<>(), nullptr,
               OPTIONAL(workDoneToken, setWorkDoneToken, TOKEN)),
        RECORD(LSPPartialResultParams, Bases<>(), nullptr,
               OPTIONAL(partialResultToken, setPartialResultToken, TOKEN)),
        RECORD(LSPTextEdit, Bases<>(), MADE_OF(r.range(), r.newText()),
               REQUIRED(range, setRange, RANGE),
               REQUIRED(newText, setNewText, R"("new")")),
        RECORD(LSPInsertReplaceEdit, Bases<>(), MADE_OF(r.newText(), r.insert(), r.replace()),
               REQUIRED(newText, setNewText, R"("new")"),
               REQUIRED(insert, setInsert, RANGE),
               REQUIRED(replace, setReplace, RANGE)),
        RECORD(LSPMarkupContent, Bases<>(), MADE_OF(r.kind(), r.value()),
               REQUIRED(kind, setKind, R"("markdown")"),
               REQUIRED(value, setValue, R"("*text*")")),
        RECORD(LSPMarkedString, Bases<>(), MADE_OF(r.language(), r.value()),
               REQUIRED(language, setLanguage, R"("python")"),
               REQUIRED(value, setValue, R"("pass")")),
        RECORD(LSPDidOpenTextDocumentParams, Bases<>(), MADE_OF(r.textDocument()),
               REQUIRED(textDocument, setTextDocument,
                        R"({"uri": "file:///a.py", "languageId": "python", "version": 0, "text": ""})")),
        RECORD(LSPDidCloseTextDocumentParams, Bases<>(), MADE_OF(r.textDocument()),
               REQUIRED(textDocument, setTextDocument, DOCUMENT)),
        RECORD(LSPDidChangeTextDocumentParams, Bases<>(), MADE_OF(r.textDocument(), *r.contentChanges()),
               REQUIRED(textDocument, setTextDocument, R"({"uri": "file:///a.py", "version": 4})"),
               REQUIRED(contentChanges, setContentChanges, R"([{"text": "all"}])")),
        RECORD(LSPTextDocumentContentChangeEvent, Bases<>(), MADE_OF(r.text()),
               OPTIONAL(range, setRange, RANGE),
               REQUIRED(text, setText, R"("new")")),
    };
}
