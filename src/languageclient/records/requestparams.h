#ifndef LSPREQUESTPARAMS_H
#define LSPREQUESTPARAMS_H

#include "languageclient/records/documents.h"

/// What the parameters of several requests have in common.
namespace Halvorin::LSP {

using LSPProgressToken = std::variant<int, QString>;

/// The place in a document that a request asks about.
class LSPTextDocumentPositionParams : public LSPRecord<>
{
    LSP_RECORD(LSPTextDocumentPositionParams,
               LSP_REQUIRED(LSPTextDocumentIdentifier, textDocument, setTextDocument),
               LSP_REQUIRED(LSPPosition, position, setPosition));
};

/// The token under which the server may report how far it is.
class LSPWorkDoneProgressParams : public LSPRecord<>
{
    LSP_RECORD(LSPWorkDoneProgressParams, LSP_OPTIONAL(LSPProgressToken, workDoneToken, setWorkDoneToken));
};

/// The token under which the server may send a part of its result ahead.
class LSPPartialResultParams : public LSPRecord<>
{
    LSP_RECORD(LSPPartialResultParams,
               LSP_OPTIONAL(LSPProgressToken, partialResultToken, setPartialResultToken));
};

} // namespace Halvorin::LSP

#endif
