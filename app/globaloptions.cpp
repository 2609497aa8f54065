#include "globaloptions.h"

#include "HalvCore/application.h"
#include "HostSupport/optionstore.h"
#include "exitcode.h"

#include <CLI/CLI.hpp>
#include <map>

using Halvorin::System::Application;
using Halvorin::System::MessageSeverity;
using HostSupport::OptionStore;

namespace {

const std::map<std::string, MessageSeverity> logLevels{
    {"diagnostic", MessageSeverity::diagnostic},
    {"info", MessageSeverity::info},
    {"warning", MessageSeverity::warning},
    {"error", MessageSeverity::error},
};

} // namespace

void GlobalOptions::addTo(CLI::App& application)
{
    application
        .add_option("--option", m_options, "Set an option of the host for this run only; may be repeated")
        ->type_name("KEY=VALUE")
        ->type_size(1)
        ->allow_extra_args(false);
    application
        .add_option("--options-file", m_optionsFile,
                    "Keep options in this file instead of the user's own (" +
                        OptionStore::defaultFile().toString().toLegacyUtf8() + ")")
        ->type_name("FILE");
    application
        .add_option("--log", m_logLevel, "The least level of log messages that are shown on standard error")
        ->type_name("diagnostic|info|warning|error");
}

void GlobalOptions::apply() const
{
    if (!m_logLevel.empty()) {
        const auto level = logLevels.find(m_logLevel);
        if (level == logLevels.end())
            throw UsageError("--log: '" + m_logLevel + "' is not one of diagnostic, info, warning, error");
        Application::instance().logger().setLevel(level->second);
    }
    if (m_optionsFile) {
        if (m_optionsFile->empty())
            throw UsageError("--options-file: the name is empty");
        try {
            OptionStore::instance().useFile(*m_optionsFile);
        } catch (const std::exception& error) {
            throw UsageError(std::string("--options-file: ") + error.what());
        }
    }
    for (const std::string& option : m_options) {
        const std::size_t equals = option.find('=');
        if (equals == std::string::npos || equals == 0)
            throw UsageError("--option: '" + option + "' does not read KEY=VALUE");
        OptionStore::instance().setForThisRun(option.substr(0, equals), option.substr(equals + 1));
    }
}
