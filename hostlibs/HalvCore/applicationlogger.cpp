#include "HalvCore/applicationlogger.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <string>

namespace Halvorin::System {

namespace {

constexpr std::array<const char*, 5> severityNames{"unspecified", "diagnostic", "info", "warning", "error"};

void writeToStandardError(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace

struct ApplicationLogger::State
{
    std::atomic<MessageSeverity> level = MessageSeverity::warning;
    std::mutex mutex; // keeps lines whole
    Output output = writeToStandardError;
};

ApplicationLogger::ApplicationLogger() : m_state(std::make_unique<State>()) {}

ApplicationLogger::~ApplicationLogger() = default;

MessageSeverity ApplicationLogger::level() const
{
    return m_state->level;
}

void ApplicationLogger::setLevel(MessageSeverity level)
{
    m_state->level = level;
}

void ApplicationLogger::setOutput(Output output)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->output = output ? std::move(output) : Output(writeToStandardError);
}

void ApplicationLogger::log(MessageSeverity severity, const String& channel, const String& message)
{
    if (std::max(severity, MessageSeverity::diagnostic) < level())
        return;
    std::string line = severityNames.at(static_cast<std::size_t>(severity));
    line.append(": ").append(channel.toStdStringView());
    line.append(": ").append(message.toStdStringView()).push_back('\n');
    const std::lock_guard lock(m_state->mutex);
    m_state->output(line);
}

} // namespace Halvorin::System
