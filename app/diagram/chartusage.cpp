#include "diagram/chartusage.h"

#include "simulator/jsontext.h"

ChartUsage::ChartUsage(std::string_view coverageJson)
{
    const JsonValue coverage = readJsonText(coverageJson);
    for (const JsonValue& state : coverage.member("states").asArray())
        m_states[state.member("state").asString()] = state.member("entered").asInt();
    for (const JsonValue& transition : coverage.member("transitions").asArray())
        m_transitions[transition.member("transition").asString()] = transition.member("taken").asInt();
}

std::int32_t ChartUsage::entered(const std::string& statePath) const
{
    const auto found = m_states.find(statePath);
    return found == m_states.end() ? 0 : found->second;
}

std::int32_t ChartUsage::taken(const std::string& transition) const
{
    const auto found = m_transitions.find(transition);
    return found == m_transitions.end() ? 0 : found->second;
}
