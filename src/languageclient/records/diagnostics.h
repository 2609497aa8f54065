#ifndef LSPDIAGNOSTICS_H
#define LSPDIAGNOSTICS_H

#include "languageclient/records/positions.h"

/// "textDocument/publishDiagnostics".
namespace Halvorin::LSP {

using LSPDiagnosticCode = std::variant<int, QString>;

/// Where a diagnostic's code is explained.
class LSPCodeDescription : public LSPRecord<>
{
    LSP_RECORD(LSPCodeDescription, LSP_REQUIRED(QUrl, href, setHref));
};

/// Another place that has to do with a diagnostic.
class LSPDiagnosticRelatedInformation : public LSPRecord<>
{
    LSP_RECORD(LSPDiagnosticRelatedInformation,
               LSP_REQUIRED(LSPLocation, location, setLocation),
               LSP_REQUIRED(QString, message, setMessage));
};

/// An error, warning or hint about a stretch of a document.
class LSPDiagnostic : public LSPRecord<>
{
    LSP_RECORD(LSPDiagnostic,
               LSP_REQUIRED(LSPRange, range, setRange),
               LSP_OPTIONAL(int, severity, setSeverity),
               LSP_OPTIONAL(LSPDiagnosticCode, code, setCode),
               LSP_OPTIONAL(LSPCodeDescription, codeDescription, setCodeDescription),
               LSP_OPTIONAL(QString, source, setSource),
               LSP_REQUIRED(QString, message, setMessage),
               LSP_OPTIONAL(std::vector<int>, tags, setTags),
               LSP_OPTIONAL(std::vector<LSPDiagnosticRelatedInformation>,
                            relatedInformation,
                            setRelatedInformation),
               LSP_OPTIONAL(QJsonValue, data, setData));
};

/// All that the server has to say about a document.
class LSPPublishDiagnosticsParams : public LSPRecord<>
{
    LSP_RECORD(LSPPublishDiagnosticsParams,
               LSP_REQUIRED(QUrl, uri, setUri),
               LSP_OPTIONAL(int, version, setVersion),
               LSP_REQUIRED(std::vector<LSPDiagnostic>, diagnostics, setDiagnostics));
};

} // namespace Halvorin::LSP

#endif
