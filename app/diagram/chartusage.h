#ifndef CHARTUSAGE_H
#define CHARTUSAGE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

/// How often states were entered and transitions taken, from a file that "halvorin run --coverage" wrote.
class ChartUsage
{
public:
    /// @throws an exception that says what is wrong with the text
    explicit ChartUsage(std::string_view coverageJson);

    /// By path; 0 for a state that the file does not have.
    std::int32_t entered(const std::string& statePath) const;

    /// By identifier.
    std::int32_t taken(const std::string& transition) const;

private:
    std::unordered_map<std::string, std::int32_t> m_states;
    std::unordered_map<std::string, std::int32_t> m_transitions;
};

#endif
