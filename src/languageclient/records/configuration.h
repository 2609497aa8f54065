#ifndef LSPCONFIGURATION_H
#define LSPCONFIGURATION_H

#include "languageclient/records/lsprecord.h"

namespace Halvorin::LSP {

/// A part of the settings that the server asks for.
class LSPConfigurationItem : public LSPRecord<>
{
    LSP_RECORD(LSPConfigurationItem,
               LSP_OPTIONAL(QUrl, scopeUri, setScopeUri),
               LSP_OPTIONAL(QString, section, setSection));
};

/// Of "workspace/configuration".
class LSPConfigurationParams : public LSPRecord<>
{
    LSP_RECORD(LSPConfigurationParams, LSP_REQUIRED(std::vector<LSPConfigurationItem>, items, setItems));
};

/// Of "workspace/didChangeConfiguration". Mind that settings given as a QJsonObject must be made a QJsonValue
/// first: the object alone is taken for that of the record.
class LSPDidChangeConfigurationParams : public LSPRecord<>
{
    LSP_RECORD(LSPDidChangeConfigurationParams, LSP_REQUIRED(QJsonValue, settings, setSettings));
};

} // namespace Halvorin::LSP

#endif
