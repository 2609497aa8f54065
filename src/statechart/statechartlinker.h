#ifndef STATECHARTLINKER_H
#define STATECHARTLINKER_H

#include "actionlanguage/codebuilder.h"
#include "statechart/json/jsonvalue.h"
#include "statechart/runtime/statechart.h"

#include <string>
#include <string_view>
#include <unordered_map>

class AbstractHierarchicalState;

/// Builds a chart that can run from a compiled one. An object links one chart, once.
///
/// Compiled charts come from outside: numbers of things are hints, and nothing is reserved for what is not
/// there.
///
/// @throws JsonTypeException "invalid key" or "invalid cast" for a member that is missing or of another type;
/// std::out_of_range for a transition from or to a state that does not exist; std::runtime_error for what
/// else is wrong, in words. The chart is then partly built, and of no use.
class HALVWIDGETS_EXPORT StateChartLinker
{
public:
    /// @param stateCount how many states to expect
    StateChartLinker(std::int32_t stateCount, std::shared_ptr<CodeBuilder> codeBuilder);
    StateChartLinker(const StateChartLinker&) = delete;
    StateChartLinker& operator=(const StateChartLinker&) = delete;
    virtual ~StateChartLinker();

    /// Fills `chart`.
    virtual void link(const JsonObject& compiled, StateChart& chart);

    /// Adds a transition to its source. All states are there by then.
    virtual void linkTransition(const std::string& identifier, const JsonObject& compiled);

protected:
    const CodeBuilder& codeBuilder() const { return *m_codeBuilder; }

private:
    using States = std::vector<std::shared_ptr<AbstractState>>;

    void linkState(const JsonObject& compiled, const std::string& identifier,
                   const std::shared_ptr<AbstractState>& parent, States& siblings);
    void linkSubstates(const JsonObject& compiled, AbstractHierarchicalState& state);
    void linkStart(const std::string& start, StateChart& chart) const;
    std::vector<LinkedStatements> linkActions(const JsonObject& compiled, std::string_view key) const;
    std::vector<ExpressionPointer<bool>> linkConditions(const JsonObject& compiled) const;
    const std::shared_ptr<AbstractState>& find(const std::string& identifier) const;

    std::unordered_map<std::string, std::shared_ptr<AbstractState>> m_states;
    std::shared_ptr<CodeBuilder> m_codeBuilder;
    std::size_t m_stateCount;
    std::size_t m_unreserved = 0; // transitions that no state has reserved room for
};

#endif
