#ifndef LSPMARKUP_H
#define LSPMARKUP_H

#include "languageclient/records/lsprecord.h"

namespace Halvorin::LSP {

/// A documentation text and how it is written.
class LSPMarkupContent : public LSPRecord<>
{
    LSP_RECORD(LSPMarkupContent,
               LSP_REQUIRED(LSPMarkupKind, kind, setKind),
               LSP_REQUIRED(QString, value, setValue));
};

/// A piece of code and the language it is in.
class LSPMarkedString : public LSPRecord<>
{
    LSP_RECORD(LSPMarkedString,
               LSP_REQUIRED(QString, language, setLanguage),
               LSP_REQUIRED(QString, value, setValue));
};

using LSPDocumentation = std::variant<QString, LSPMarkupContent>;

} // namespace Halvorin::LSP

#endif
