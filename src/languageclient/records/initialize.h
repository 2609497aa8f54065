#ifndef LSPINITIALIZE_H
#define LSPINITIALIZE_H

#include "languageclient/records/clientcapabilities.h"
#include "languageclient/records/documents.h"
#include "languageclient/records/requestparams.h"
#include "languageclient/records/servercapabilities.h"

/// "initialize".
namespace Halvorin::LSP {

using LSPProcessId = std::variant<std::nullptr_t, int>;
using LSPRootUri = std::variant<std::nullptr_t, QUrl>;
using LSPWorkspaceFolders = std::variant<std::nullptr_t, std::vector<LSPWorkspaceFolder>>;

/// Who the client is, where it works and what it can do.
class LSPInitializeParams : public LSPRecord<LSPWorkDoneProgressParams>
{
public:
    /// The client's program.
    class ClientInfo : public LSPRecord<>
    {
        LSP_RECORD(ClientInfo,
                   LSP_REQUIRED(QString, name, setName),
                   LSP_OPTIONAL(QString, version, setVersion));
    };

    LSP_RECORD(LSPInitializeParams,
               LSP_REQUIRED(LSPProcessId, processId, setProcessId),
               LSP_OPTIONAL(ClientInfo, clientInfo, setClientInfo),
               LSP_OPTIONAL(QString, locale, setLocale),
               LSP_REQUIRED(LSPRootUri, rootUri, setRootUri),
               LSP_OPTIONAL(QJsonValue, initializationOptions, setInitializationOptions),
               LSP_REQUIRED(LSPClientCapabilities, capabilities, setCapabilities),
               LSP_OPTIONAL(LSPTraceValue, trace, setTrace),
               LSP_OPTIONAL(LSPWorkspaceFolders, workspaceFolders, setWorkspaceFolders));
};

/// What the server answers.
class LSPInitializeResult : public LSPRecord<>
{
public:
    /// The server's program.
    class ServerInfo : public LSPRecord<>
    {
        LSP_RECORD(ServerInfo,
                   LSP_REQUIRED(QString, name, setName),
                   LSP_OPTIONAL(QString, version, setVersion));
    };

    LSP_RECORD(LSPInitializeResult,
               LSP_REQUIRED(LSPServerCapabilities, capabilities, setCapabilities),
               LSP_OPTIONAL(ServerInfo, serverInfo, setServerInfo));
};

} // namespace Halvorin::LSP

#endif
