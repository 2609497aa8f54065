#ifndef LSPHOVER_H
#define LSPHOVER_H

#include "languageclient/records/markup.h"
#include "languageclient/records/requestparams.h"

/// "textDocument/hover".
namespace Halvorin::LSP {

/// A text, or a piece of code with its language.
using LSPHoverLine = std::variant<QString, LSPMarkedString>;
using LSPHoverContents = std::variant<QString, LSPMarkedString, LSPMarkupContent, std::vector<LSPHoverLine>>;

/// What the server tells of a place in a document.
class LSPHover : public LSPRecord<>
{
    LSP_RECORD(LSPHover,
               LSP_REQUIRED(LSPHoverContents, contents, setContents),
               LSP_OPTIONAL(LSPRange, range, setRange));
};

/// Of "textDocument/hover".
class LSPHoverParams : public LSPRecord<LSPTextDocumentPositionParams, LSPWorkDoneProgressParams>
{
    LSP_RECORD(LSPHoverParams,
               LSP_INHERITED(LSPTextDocumentIdentifier, textDocument, setTextDocument),
               LSP_INHERITED(LSPPosition, position, setPosition));
};

} // namespace Halvorin::LSP

#endif
