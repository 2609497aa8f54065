#include "languageclient/transport/logging.h"

#include "HalvCore/application.h"

namespace Halvorin::LSP {

using System::MessageSeverity;

bool isLogged(MessageSeverity severity)
{
    return severity >= System::Application::instance().logger().level();
}

void log(MessageSeverity severity, const char* channel, const QString& text)
{
    log(severity, channel, text.toStdString());
}

void log(MessageSeverity severity, const char* channel, std::string text)
{
    System::Application::instance().logger().log(severity, channel, System::String(std::move(text)));
}

} // namespace Halvorin::LSP
