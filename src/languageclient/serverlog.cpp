#include "languageclient/serverlog.h"

#include "languageclient/transport/logging.h"

namespace Halvorin::LSP {

namespace {

using System::MessageSeverity;

/// A server complains of the null root that it is given: that is how it is meant.
bool isComplaintAboutNullRoot(const QString& message)
{
    return message == QLatin1String(R"(File or directory "\<default workspace root>" does not exist.)") ||
           message == QLatin1String(R"(File or directory "/<default workspace root>" does not exist.)");
}

MessageSeverity severityOf(LSPMessageType type)
{
    switch (type) {
    case LSPMessageType::Error:
        return MessageSeverity::error;
    case LSPMessageType::Warning:
        return MessageSeverity::warning;
    case LSPMessageType::Info:
        return MessageSeverity::info;
    case LSPMessageType::Log:
    case LSPMessageType::Debug:
        return MessageSeverity::diagnostic;
    case LSPMessageType::Unknown:
        break;
    }
    return MessageSeverity::unspecified;
}

} // namespace

void logServerMessage(LSPMessageType type, const QString& message)
{
    if (type == LSPMessageType::Error && isComplaintAboutNullRoot(message))
        type = LSPMessageType::Info;
    log(severityOf(type), serverChannel, message);
}

} // namespace Halvorin::LSP
