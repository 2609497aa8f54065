#ifndef HOSTLOG_H
#define HOSTLOG_H

#include "HalvCore/application.h"

#include <string>
#include <vector>

/// What is written to the host's logger while this stands, of every severity: a line each, as
/// "warning: channel: text".
class HostLog
{
public:
    HostLog() : m_level(logger().level())
    {
        logger().setLevel(Halvorin::System::MessageSeverity::diagnostic);
        logger().setOutput(
            [this](std::string_view line) { m_lines.emplace_back(line.substr(0, line.size() - 1)); });
    }
    HostLog(const HostLog&) = delete;
    HostLog& operator=(const HostLog&) = delete;
    ~HostLog()
    {
        logger().setOutput({});
        logger().setLevel(m_level);
    }

    const std::vector<std::string>& lines() const { return m_lines; }

    /// The lines that start with the text.
    std::vector<std::string> linesOf(const std::string& start) const
    {
        std::vector<std::string> found;
        for (const std::string& line : m_lines) {
            if (line.starts_with(start))
                found.push_back(line);
        }
        return found;
    }

private:
    static Halvorin::System::ApplicationLogger& logger()
    {
        return Halvorin::System::Application::instance().logger();
    }

    Halvorin::System::MessageSeverity m_level;
    std::vector<std::string> m_lines;
};

#endif
