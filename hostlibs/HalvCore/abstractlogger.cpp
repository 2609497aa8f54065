#include "HalvCore/abstractlogger.h"

namespace Halvorin::System {

namespace {

String owned(StringView text)
{
    return std::string(text.toStdStringView());
}

} // namespace

AbstractLogger::~AbstractLogger() = default;

void AbstractLogger::diagnostic(const String& channel, const String& message)
{
    log(MessageSeverity::diagnostic, channel, message);
}

void AbstractLogger::diagnostic(const char* channel, const char* message)
{
    log(MessageSeverity::diagnostic, channel, message);
}

void AbstractLogger::diagnostic(StringView channel, StringView message)
{
    log(MessageSeverity::diagnostic, owned(channel), owned(message));
}

void AbstractLogger::info(const String& channel, const String& message)
{
    log(MessageSeverity::info, channel, message);
}

void AbstractLogger::info(const char* channel, const char* message)
{
    log(MessageSeverity::info, channel, message);
}

void AbstractLogger::info(StringView channel, StringView message)
{
    log(MessageSeverity::info, owned(channel), owned(message));
}

void AbstractLogger::warning(const String& channel, const String& message)
{
    log(MessageSeverity::warning, channel, message);
}

void AbstractLogger::warning(const char* channel, const char* message)
{
    log(MessageSeverity::warning, channel, message);
}

void AbstractLogger::warning(StringView channel, StringView message)
{
    log(MessageSeverity::warning, owned(channel), owned(message));
}

void AbstractLogger::warning(const ErrorCode& error)
{
    log(MessageSeverity::warning, "error", error.message());
}

void AbstractLogger::error(const String& channel, const String& message)
{
    log(MessageSeverity::error, channel, message);
}

void AbstractLogger::error(const char* channel, const char* message)
{
    log(MessageSeverity::error, channel, message);
}

void AbstractLogger::error(StringView channel, StringView message)
{
    log(MessageSeverity::error, owned(channel), owned(message));
}

} // namespace Halvorin::System
