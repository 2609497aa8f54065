#include "Python/pythonlog.h"

#include "HalvCore/application.h"

using Halvorin::System::Application;

namespace PythonLog {

namespace {

constexpr auto channel = "python";

} // namespace

void diagnostic(const std::string& message)
{
    Application::instance().logger().diagnostic(channel, message.c_str());
}

void warning(const std::string& message)
{
    Application::instance().logger().warning(channel, message.c_str());
}

void error(const std::string& message)
{
    Application::instance().logger().error(channel, message.c_str());
}

} // namespace PythonLog
