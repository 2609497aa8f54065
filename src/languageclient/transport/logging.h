#ifndef LOGGING_H
#define LOGGING_H

#include "HalvCore/abstractlogger.h"

#include <QString>

namespace Halvorin::LSP {

/// The channels of the host's logger that the client writes to: what the server and the connection do, and
/// what goes wrong inside the client.
inline constexpr auto serverChannel = "langserv";
inline constexpr auto clientChannel = "lspclient";

/// Whether the host's logger writes messages of that severity: a long text need not be formed for nothing.
bool isLogged(System::MessageSeverity severity);

/// Writes a text to the host's logger.
void log(System::MessageSeverity severity, const char* channel, const QString& text);
void log(System::MessageSeverity severity, const char* channel, std::string text);

} // namespace Halvorin::LSP

#endif
