#ifndef LSPDOCUMENTS_H
#define LSPDOCUMENTS_H

#include "languageclient/records/positions.h"

namespace Halvorin::LSP {

/// Names a document.
class LSPTextDocumentIdentifier : public LSPRecord<>
{
    LSP_RECORD(LSPTextDocumentIdentifier, LSP_REQUIRED(QUrl, uri, setUri));
};

/// Names a document as it was at one revision.
class LSPVersionedTextDocumentIdentifier : public LSPRecord<LSPTextDocumentIdentifier>
{
    LSP_RECORD(LSPVersionedTextDocumentIdentifier,
               LSP_INHERITED(QUrl, uri, setUri),
               LSP_REQUIRED(int, version, setVersion));
};

/// A document with its whole text.
class LSPTextDocumentItem : public LSPRecord<>
{
    LSP_RECORD(LSPTextDocumentItem,
               LSP_REQUIRED(QUrl, uri, setUri),
               LSP_REQUIRED(QString, languageId, setLanguageId),
               LSP_REQUIRED(int, version, setVersion),
               LSP_REQUIRED(QString, text, setText));

public:
    LSPTextDocumentItem(const QUrl& uri, LSPLanguageId language, int version, const QString& text)
        : LSPTextDocumentItem(uri, textOf(language), version, text)
    {}
    void setLanguageId(LSPLanguageId language) { setLanguageId(textOf(language)); }
};

/// A folder that is open in the editor.
class LSPWorkspaceFolder : public LSPRecord<>
{
    LSP_RECORD(LSPWorkspaceFolder, LSP_REQUIRED(QUrl, uri, setUri), LSP_REQUIRED(QString, name, setName));
};

/// A change of a document: of a stretch of it, or of all where there is no range.
class LSPTextDocumentContentChangeEvent : public LSPRecord<>
{
    LSP_RECORD(LSPTextDocumentContentChangeEvent,
               LSP_OPTIONAL(LSPRange, range, setRange),
               LSP_REQUIRED(QString, text, setText));
};

/// Of "textDocument/didOpen".
class LSPDidOpenTextDocumentParams : public LSPRecord<>
{
    LSP_RECORD(LSPDidOpenTextDocumentParams,
               LSP_REQUIRED(LSPTextDocumentItem, textDocument, setTextDocument));
};

/// Of "textDocument/didClose".
class LSPDidCloseTextDocumentParams : public LSPRecord<>
{
    LSP_RECORD(LSPDidCloseTextDocumentParams,
               LSP_REQUIRED(LSPTextDocumentIdentifier, textDocument, setTextDocument));
};

/// Of "textDocument/didChange".
class LSPDidChangeTextDocumentParams : public LSPRecord<>
{
    LSP_RECORD(LSPDidChangeTextDocumentParams,
               LSP_REQUIRED(LSPVersionedTextDocumentIdentifier, textDocument, setTextDocument),
               LSP_REQUIRED(std::vector<LSPTextDocumentContentChangeEvent>,
                            contentChanges,
                            setContentChanges));
};

} // namespace Halvorin::LSP

#endif
