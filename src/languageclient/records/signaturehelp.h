#ifndef LSPSIGNATUREHELP_H
#define LSPSIGNATUREHELP_H

#include "languageclient/records/markup.h"
#include "languageclient/records/requestparams.h"

/// "textDocument/signatureHelp".
namespace Halvorin::LSP {

/// The label of a parameter: a text, or where it begins and ends in the signature's label.
using LSPParameterLabelSpan = std::pair<int, int>;
using LSPParameterLabel = std::variant<QString, LSPParameterLabelSpan>;

/// A parameter of a signature.
class LSPParameterInformation : public LSPRecord<>
{
    LSP_RECORD(LSPParameterInformation,
               LSP_REQUIRED(LSPParameterLabel, label, setLabel),
               LSP_OPTIONAL(LSPDocumentation, documentation, setDocumentation));
};

/// One way to call what is being called.
class LSPSignatureInformation : public LSPRecord<>
{
    LSP_RECORD(LSPSignatureInformation,
               LSP_REQUIRED(QString, label, setLabel),
               LSP_OPTIONAL_CHECKED(LSPDocumentation, documentation, setDocumentation),
               LSP_OPTIONAL_CHECKED(std::vector<LSPParameterInformation>, parameters, setParameters),
               LSP_OPTIONAL(int, activeParameter, setActiveParameter));
};

/// All ways to call it, and which of them and which parameter the cursor is at.
class LSPSignatureHelp : public LSPRecord<>
{
    LSP_RECORD(LSPSignatureHelp,
               LSP_REQUIRED_CHECKED(std::vector<LSPSignatureInformation>, signatures, setSignatures),
               LSP_OPTIONAL(int, activeSignature, setActiveSignature),
               LSP_OPTIONAL(int, activeParameter, setActiveParameter));
};

/// How the help was asked for, and what is shown already.
class LSPSignatureHelpContext : public LSPRecord<>
{
    LSP_RECORD(LSPSignatureHelpContext,
               LSP_REQUIRED(int, triggerKind, setTriggerKind),
               LSP_OPTIONAL(QString, triggerCharacter, setTriggerCharacter),
               LSP_REQUIRED(bool, isRetrigger, setRetrigger),
               LSP_OPTIONAL(LSPSignatureHelp, activeSignatureHelp, setActiveSignatureHelp));
};

/// What the server can do about signatures.
class LSPSignatureHelpOptions : public LSPRecord<LSPWorkDoneProgressParams>
{
    LSP_RECORD(LSPSignatureHelpOptions,
               LSP_OPTIONAL(std::vector<QString>, triggerCharacters, setTriggerCharacters),
               LSP_OPTIONAL(std::vector<QString>, retriggerCharacters, setRetriggerCharacters));
};

/// Of "textDocument/signatureHelp".
class LSPSignatureHelpParams : public LSPRecord<LSPTextDocumentPositionParams, LSPWorkDoneProgressParams>
{
    LSP_RECORD(LSPSignatureHelpParams,
               LSP_INHERITED(LSPTextDocumentIdentifier, textDocument, setTextDocument),
               LSP_INHERITED(LSPPosition, position, setPosition),
               LSP_OPTIONAL(LSPSignatureHelpContext, context, setContext));
};

} // namespace Halvorin::LSP

#endif
