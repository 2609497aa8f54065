#ifndef LSPSYMBOLS_H
#define LSPSYMBOLS_H

#include "languageclient/records/requestparams.h"

/// "textDocument/documentSymbol".
namespace Halvorin::LSP {

/// What a document declares, with what is declared inside it.
class LSPDocumentSymbol : public LSPRecord<>
{
    LSP_RECORD(LSPDocumentSymbol,
               LSP_REQUIRED(QString, name, setName),
               LSP_OPTIONAL(QString, detail, setDetail),
               LSP_REQUIRED(int, kind, setKind),
               LSP_OPTIONAL(std::vector<int>, tags, setTags),
               LSP_OPTIONAL(bool, deprecated, setDeprecated),
               LSP_REQUIRED_CHECKED(LSPRange, range, setRange),
               LSP_REQUIRED_CHECKED(LSPRange, selectionRange, setSelectionRange),
               LSP_OPTIONAL_CHECKED(std::vector<LSPDocumentSymbol>, children, setChildren));
};

/// What a document declares, of a flat list.
class LSPSymbolInformation : public LSPRecord<>
{
    LSP_RECORD(LSPSymbolInformation,
               LSP_REQUIRED(QString, name, setName),
               LSP_REQUIRED(int, kind, setKind),
               LSP_OPTIONAL(std::vector<int>, tags, setTags),
               LSP_OPTIONAL(bool, deprecated, setDeprecated),
               LSP_REQUIRED(LSPLocation, location, setLocation),
               LSP_OPTIONAL(QString, containerName, setContainerName));
};

/// Of "textDocument/documentSymbol".
class LSPDocumentSymbolParams : public LSPRecord<LSPWorkDoneProgressParams, LSPPartialResultParams>
{
    LSP_RECORD(LSPDocumentSymbolParams,
               LSP_REQUIRED(LSPTextDocumentIdentifier, textDocument, setTextDocument));
};

} // namespace Halvorin::LSP

#endif
