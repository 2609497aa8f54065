#include "actionlanguage/analysis/constantfolding.h"
#include "statechart/check/lints.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <set>

namespace {

using Type = ChartState::Type;

/// Whether a condition has the same value for as long as one event is being dealt with. Pins, buses,
/// parameters and the time stand still then; only variables change.
bool standsStill(const SourceNode& condition)
{
    bool result = true;
    visitSourceTree(condition, [&](const SourceNode& node) {
        if (node.kind == SourceNodeKind::call && node.text.starts_with("getVariable_"))
            result = false;
    });
    return result;
}

/// When a transition without event is taken, seen from the entry into its state.
struct Taking
{
    enum class When
    {
        always,
        sometimes, ///< who knows
        never,
    };

    When when = When::sometimes;
    std::vector<JsonValue> conditions; ///< with `sometimes`: all of them, when each of them stands still

    bool isFrozen() const { return when == When::sometimes && !conditions.empty(); }
};

Taking takingOf(const ChartTransition& transition, const ConstantFolding& folding)
{
    Taking taking;
    if (!transition.hasConditions) {
        taking.when = Taking::When::always;
        return taking;
    }
    const JsonValue* const texts = transition.definition->find("conditions");
    const std::size_t count = texts->isArray() ? texts->asArray().size() : 1;
    bool isAlways = transition.conditions.size() == count;
    bool isFrozen = isAlways; // nothing is known of what does not compile
    for (const CheckedText* condition : transition.conditions) {
        const std::optional<bool> truth = folding.truthOf(condition->tree);
        if (truth == false)
            return {Taking::When::never, {}};
        isAlways = isAlways && truth == true;
        isFrozen = isFrozen && standsStill(condition->tree);
        taking.conditions.push_back(*condition->tree.form);
    }
    if (isAlways)
        taking.when = Taking::When::always;
    if (isAlways || !isFrozen)
        taking.conditions.clear();
    return taking;
}

/// Looks for ways from a transition without event back to its own source that nothing ends: through
/// transitions that are always taken, or under the very conditions under which the first one was, while
/// those stand still. Of each state only the first transition counts that can be taken at all: where that is
/// one of other conditions, it is a way out.
///
/// Only atomic states pass a chain on. The transition without event of a hierarchical state is dropped, since
/// its substates have not been entered.
class EndlessChains
{
public:
    EndlessChains(const ChartModel& chart, const std::vector<Taking>& takings)
        : m_chart(chart), m_takings(takings), m_candidates(chart.states().size()),
          m_seenBy(chart.states().size())
    {
        for (std::size_t state = 0; state < chart.states().size(); ++state) {
            const auto& transitions = chart.states()[state].transitions;
            const auto first = std::ranges::find_if(transitions, [&](std::size_t transition) {
                return takings[transition].when != Taking::When::never;
            });
            if (first != transitions.end())
                m_candidates[state] = *first;
        }
    }

    /// The transitions of the way round, beginning with the first; empty when there is none.
    std::vector<std::size_t> wayRound(std::size_t first)
    {
        const std::size_t source = m_chart.transitions()[first].source;
        m_taking = &m_takings[first];
        if (m_chart.states()[source].type != Type::atomic || takenFrom(source) != first)
            return {};
        ++m_search;
        m_open.clear();
        std::vector<std::size_t> way{first};
        enter(*m_chart.transitions()[first].target);
        while (!m_open.empty()) {
            const std::size_t state = m_open.back();
            m_open.pop_back();
            if (state == source)
                return way;
            const std::optional<std::size_t> next = takenFrom(state);
            if (!next) {
                enterChildren(m_chart.states()[state]);
            } else if (m_chart.states()[state].type == Type::atomic) {
                way.push_back(*next);
                enter(*m_chart.transitions()[*next].target);
            }
        }
        return {};
    }

private:
    bool isTaken(std::size_t transition) const
    {
        const Taking& taking = m_takings[transition];
        return taking.when == Taking::When::always ||
               (taking.isFrozen() && taking.conditions == m_taking->conditions);
    }

    /// The transition without event that is certain to be taken on entry.
    std::optional<std::size_t> takenFrom(std::size_t state) const
    {
        const std::optional<std::size_t> candidate = m_candidates[state];
        return candidate && isTaken(*candidate) && m_chart.transitions()[*candidate].target ? candidate
                                                                                            : std::nullopt;
    }

    void enter(std::size_t state)
    {
        if (m_seenBy[state] == m_search)
            return;
        m_seenBy[state] = m_search;
        m_open.push_back(state);
    }

    void enterChildren(const ChartState& state)
    {
        if (state.type == Type::parallel)
            std::ranges::for_each(state.children, [&](std::size_t child) { enter(child); });
        else if (state.initial)
            enter(*state.initial);
    }

    const ChartModel& m_chart;
    const std::vector<Taking>& m_takings;
    std::vector<std::optional<std::size_t>> m_candidates; // by state
    std::vector<std::size_t> m_seenBy;                    // by state: the search that met it last
    std::size_t m_search = 0;
    std::vector<std::size_t> m_open;
    const Taking* m_taking = nullptr; // of the first transition
};

} // namespace

void lintEndlessTransitions(const CheckedDefinition& checked, FindingReport& report)
{
    const std::vector<ChartTransition>& transitions = checked.chart.transitions();
    std::vector<Taking> takings;
    takings.reserve(transitions.size());
    for (const ChartTransition& transition : transitions)
        takings.push_back(transition.hasEvent() ? Taking{Taking::When::never, {}}
                                                : takingOf(transition, checked.folding));
    EndlessChains chains(checked.chart, takings);
    std::set<std::size_t> reported;
    for (std::size_t i = 0; i < transitions.size(); ++i) {
        if (transitions[i].hasEvent() || !transitions[i].target || reported.contains(i))
            continue;
        const std::vector<std::size_t> way = chains.wayRound(i);
        reported.insert(way.begin(), way.end());
        if (!way.empty()) {
            report.addAtKey({FindingKind::endlessTransitions,
                             formatText("'{}' leads back to '{}' through transitions without event, for ever",
                                        transitions[i].identifier,
                                        checked.chart.states()[transitions[i].source].identifier)},
                            transitions[i].path);
        }
    }
}
