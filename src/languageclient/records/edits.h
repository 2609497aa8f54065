#ifndef LSPEDITS_H
#define LSPEDITS_H

#include "languageclient/records/positions.h"

namespace Halvorin::LSP {

/// A stretch of a document and the text that takes its place.
class LSPTextEdit : public LSPRecord<>
{
    LSP_RECORD(LSPTextEdit,
               LSP_REQUIRED(LSPRange, range, setRange),
               LSP_REQUIRED(QString, newText, setNewText));
};

/// A text to put in, and the stretches that go when it is inserted or replaces.
class LSPInsertReplaceEdit : public LSPRecord<>
{
    LSP_RECORD(LSPInsertReplaceEdit,
               LSP_REQUIRED(QString, newText, setNewText),
               LSP_REQUIRED(LSPRange, insert, setInsert),
               LSP_REQUIRED(LSPRange, replace, setReplace));
};

} // namespace Halvorin::LSP

#endif
