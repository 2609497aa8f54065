#ifndef SERVERLOG_H
#define SERVERLOG_H

#include "languageclient/lspclientstatus.h"

#include <QString>

namespace Halvorin::LSP {

/// Writes what a server logs to the host's logger, on the channel "langserv".
void logServerMessage(LSPMessageType type, const QString& message);

} // namespace Halvorin::LSP

#endif
