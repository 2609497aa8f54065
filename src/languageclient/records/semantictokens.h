#ifndef LSPSEMANTICTOKENS_H
#define LSPSEMANTICTOKENS_H

#include "languageclient/records/requestparams.h"

/// "textDocument/semanticTokens/full".
namespace Halvorin::LSP {

/// The tokens of a document, five numbers each.
class LSPSemanticTokens : public LSPRecord<>
{
    LSP_RECORD(LSPSemanticTokens,
               LSP_OPTIONAL(QString, resultId, setResultId),
               LSP_REQUIRED(std::vector<unsigned>, data, setData));
};

/// Of "textDocument/semanticTokens/full".
class LSPSemanticTokensParams : public LSPRecord<LSPWorkDoneProgressParams, LSPPartialResultParams>
{
    LSP_RECORD(LSPSemanticTokensParams,
               LSP_REQUIRED(LSPTextDocumentIdentifier, textDocument, setTextDocument));
};

} // namespace Halvorin::LSP

#endif
