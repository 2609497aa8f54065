#ifndef LSPPOSITIONS_H
#define LSPPOSITIONS_H

#include "languageclient/records/lsprecord.h"

namespace Halvorin::LSP {

/// A place in a document: line and UTF-16 unit, both from 0.
class LSPPosition : public LSPRecord<>
{
    LSP_RECORD(LSPPosition, LSP_REQUIRED(int, line, setLine), LSP_REQUIRED(int, character, setCharacter));
};

/// A stretch of a document; the end is the place after it.
class LSPRange : public LSPRecord<>
{
    LSP_RECORD(LSPRange, LSP_REQUIRED(LSPPosition, start, setStart), LSP_REQUIRED(LSPPosition, end, setEnd));

public:
    void setStartLine(int line);
    void setStartCharacter(int character);
    void setEndLine(int line);
    void setEndCharacter(int character);
};

/// A stretch of a document that is named.
class LSPLocation : public LSPRecord<>
{
    LSP_RECORD(LSPLocation, LSP_REQUIRED(QUrl, uri, setUri), LSP_REQUIRED(LSPRange, range, setRange));
};

} // namespace Halvorin::LSP

#endif
