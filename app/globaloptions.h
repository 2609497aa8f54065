#ifndef GLOBALOPTIONS_H
#define GLOBALOPTIONS_H

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The options that hold for every subcommand.
class GlobalOptions
{
public:
    void addTo(CLI::App& application);

    /// Once the command line is parsed. @throws UsageError
    void apply() const;

private:
    std::vector<std::string> m_options; // KEY=VALUE
    std::optional<std::string> m_optionsFile;
    std::string m_logLevel;
};

#endif
