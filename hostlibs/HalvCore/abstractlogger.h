#ifndef HALVCORE_ABSTRACTLOGGER_H
#define HALVCORE_ABSTRACTLOGGER_H

#include "HalvCore/errorcode.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/string.h"
#include "HalvCore/stringview.h"

namespace Halvorin::System {

/// From what only a developer wants to read to what everyone must. What has no known severity is written
/// where a developer reads, too.
enum class MessageSeverity
{
    unspecified = 0,
    diagnostic = 1,
    info = 2,
    warning = 3,
    error = 4,
};

/// Takes messages, each with the channel that it belongs to ("python", "lsp", ...). Every form ends in the
/// one virtual log().
class HALVCORE_EXPORT AbstractLogger
{
public:
    virtual ~AbstractLogger();

    virtual void log(MessageSeverity severity, const String& channel, const String& message) = 0;

    void diagnostic(const String& channel, const String& message);
    void diagnostic(const char* channel, const char* message);
    void diagnostic(StringView channel, StringView message);

    void info(const String& channel, const String& message);
    void info(const char* channel, const char* message);
    void info(StringView channel, StringView message);

    void warning(const String& channel, const String& message);
    void warning(const char* channel, const char* message);
    void warning(StringView channel, StringView message);
    /// The message of the error, on the channel "error".
    void warning(const ErrorCode& error);

    void error(const String& channel, const String& message);
    void error(const char* channel, const char* message);
    void error(StringView channel, StringView message);
};

} // namespace Halvorin::System

#endif
