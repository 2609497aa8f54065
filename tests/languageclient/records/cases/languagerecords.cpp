#include "languageclient/records/diagnostics.h"
#include "languageclient/records/hover.h"
#include "languageclient/records/semantictokens.h"
#include "languageclient/records/signaturehelp.h"
#include "languageclient/records/symbols.h"

#include "recordcase.h"

using namespace Halvorin::LSP;

namespace {

using OfPlace = recordcases::Bases<LSPTextDocumentPositionParams, LSPWorkDoneProgressParams>;
using OfDocument = recordcases::Bases<LSPWorkDoneProgressParams, LSPPartialResultParams>;

} // namespace

std::vector<recordcases::RecordCase> recordcases::languageRecords()
{
    return {
        RECORD(LSPCodeDescription, Bases<>(), MADE_OF(r.href()),
               REQUIRED(href, setHref, R"("https://example.org/E1")")),
        RECORD(LSPDiagnosticRelatedInformation, Bases<>(), MADE_OF(r.location(), r.message()),
               REQUIRED(location, setLocation, LOCATION),
               REQUIRED(message, setMessage, R"("defined here")")),
        RECORD(LSPDiagnostic, Bases<>(), MADE_OF(r.range(), r.message()),
               REQUIRED(range, setRange, RANGE),
               OPTIONAL(severity, setSeverity, "1"),
               OPTIONAL(code, setCode, R"(12, "E1")"),
               OPTIONAL(codeDescription, setCodeDescription, R"({"href": "https://example.org/E1"})"),
               OPTIONAL(source, setSource, R"("checker")"),
               REQUIRED(message, setMessage, R"("no such name")"),
               OPTIONAL(tags, setTags, "[1, 2]"),
               OPTIONAL(relatedInformation, setRelatedInformation,
                        R"([{"message": "defined here", "location": )" LOCATION "}]"),
               OPTIONAL(data, setData, ANYTHING)),
        RECORD(LSPPublishDiagnosticsParams, Bases<>(), MADE_OF(r.uri(), *r.diagnostics()),
               REQUIRED(uri, setUri, R"("file:///a.py")"),
               OPTIONAL(version, setVersion, "3"),
               REQUIRED(diagnostics, setDiagnostics, R"([{"message": "bad", "range": )" RANGE "}]")),
        RECORD(LSPDocumentSymbol, Bases<>(), MADE_OF(r.name(), r.kind(), r.range(), r.selectionRange()),
               REQUIRED(name, setName, R"("f")"),
               OPTIONAL(detail, setDetail, R"("a function")"),
               REQUIRED(kind, setKind, "12"),
               OPTIONAL(tags, setTags, "[1]"),
               OPTIONAL(deprecated, setDeprecated, "true"),
               REQUIRED(range, setRange, RANGE),
               REQUIRED(selectionRange, setSelectionRange, RANGE),
               OPTIONAL(children, setChildren,
                        R"([{"name": "g", "kind": 12, "range": )" RANGE R"(, "selectionRange": )" RANGE "}]")),
        RECORD(LSPSymbolInformation, Bases<>(), MADE_OF(r.name(), r.kind(), r.location()),
               REQUIRED(name, setName, R"("f")"),
               REQUIRED(kind, setKind, "12"),
               OPTIONAL(tags, setTags, "[1]"),
               OPTIONAL(deprecated, setDeprecated, "true"),
               REQUIRED(location, setLocation, LOCATION),
               OPTIONAL(containerName, setContainerName, R"("C")")),
        RECORD(LSPDocumentSymbolParams, OfDocument(),
               MADE_OF(r.textDocument()),
               REQUIRED(textDocument, setTextDocument, DOCUMENT)),
        RECORD(LSPHover, Bases<>(), MADE_OF(r.contents()),
               REQUIRED(contents, setContents,
                        R"("text", {"kind": "markdown", "value": "*text*"},
                           {"language": "python", "value": "pass"},
                           ["text", {"language": "python", "value": "pass"}])"),
               OPTIONAL(range, setRange, RANGE)),
        RECORD(LSPHoverParams, OfPlace(),
               MADE_OF(r.textDocument(), r.position())),
        RECORD(LSPParameterInformation, Bases<>(), MADE_OF(r.label()),
               REQUIRED(label, setLabel, R"("x", [2, 3])"),
               OPTIONAL(documentation, setDocumentation, DOCUMENTATION)),
        RECORD(LSPSignatureInformation, Bases<>(), MADE_OF(r.label()),
               REQUIRED(label, setLabel, R"("f(x) -> int")"),
               OPTIONAL(documentation, setDocumentation, DOCUMENTATION),
               OPTIONAL(parameters, setParameters, R"([{"label": "x"}, {"label": [2, 3]}])"),
               OPTIONAL(activeParameter, setActiveParameter, "1")),
        RECORD(LSPSignatureHelp, Bases<>(), MADE_OF(*r.signatures()),
               REQUIRED(signatures, setSignatures, R"([{"label": "f(x) -> int"}])"),
               OPTIONAL(activeSignature, setActiveSignature, "0"),
               OPTIONAL(activeParameter, setActiveParameter, "1")),
        RECORD(LSPSignatureHelpContext, Bases<>(), MADE_OF(r.triggerKind(), r.isRetrigger()),
               REQUIRED(triggerKind, setTriggerKind, "2"),
               OPTIONAL(triggerCharacter, setTriggerCharacter, R"("(")"),
               REQUIRED(isRetrigger, setRetrigger, "true"),
               OPTIONAL(activeSignatureHelp, setActiveSignatureHelp, R"({"signatures": []})")),
        RECORD(LSPSignatureHelpOptions, Bases<LSPWorkDoneProgressParams>(), nullptr,
               OPTIONAL(triggerCharacters, setTriggerCharacters, R"(["(", ","])"),
               OPTIONAL(retriggerCharacters, setRetriggerCharacters, R"([") "])")),
        RECORD(LSPSignatureHelpParams, OfPlace(),
               MADE_OF(r.textDocument(), r.position()),
               OPTIONAL(context, setContext, R"({"triggerKind": 1, "isRetrigger": false})")),
        RECORD(LSPSemanticTokens, Bases<>(), MADE_OF(*r.data()),
               OPTIONAL(resultId, setResultId, R"("1")"),
               REQUIRED(data, setData, "[0, 4, 3, 1, 4294967295]")),
        RECORD(LSPSemanticTokensParams, OfDocument(),
               MADE_OF(r.textDocument()),
               REQUIRED(textDocument, setTextDocument, DOCUMENT)),
}
;
}
