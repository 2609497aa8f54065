#include "statechart/check/lints.h"
#include "statechart/check/transitionshadows.h"
#include "statechart/text/format.h"

#include <algorithm>

namespace {

using Type = ChartState::Type;

/// Follows a chart the way that its run-time does, taking every transition for possible that no other one
/// stands in front of.
class Reachability
{
public:
    explicit Reachability(const ChartModel& chart)
        : m_chart(chart), m_shadows(transitionShadows(chart)), m_isEntered(chart.states().size()),
          m_isActive(chart.states().size())
    {}

    void startAt(std::size_t state)
    {
        m_open.push_back(state);
        while (!m_open.empty()) {
            const std::size_t next = m_open.back();
            m_open.pop_back();
            enter(next);
        }
    }

    bool isReached(std::size_t state) const { return m_isEntered[state] || m_isActive[state]; }

private:
    void enter(std::size_t index)
    {
        if (m_isEntered[index])
            return;
        m_isEntered[index] = true;
        const ChartState& state = m_chart.states()[index];
        const bool isLeaf = state.type == Type::atomic || state.type == Type::unknown;
        if (isLeaf) // others are active with a descendant only
            activate(index);
        if (isLeftOnEntry(state))
            return;
        if (state.type == Type::compound && state.initial)
            m_open.push_back(*state.initial);
        else // which child is entered is not known where "initial" is wrong
            m_open.insert(m_open.end(), state.children.begin(), state.children.end());
    }

    /// A transition without event that always holds keeps the substates from being entered.
    bool isLeftOnEntry(const ChartState& state) const
    {
        return std::ranges::any_of(state.transitions, [&](std::size_t transition) {
            const ChartTransition& each = m_chart.transitions()[transition];
            return !each.hasEvent() && each.holding == Holding::always && each.target;
        });
    }

    /// A state is active with any of its descendants, even one that was entered directly.
    void activate(std::optional<std::size_t> index)
    {
        for (; index && !m_isActive[*index]; index = m_chart.states()[*index].parent) {
            m_isActive[*index] = true;
            for (const std::size_t transition : m_chart.states()[*index].transitions) {
                const std::optional<std::size_t> target = m_chart.transitions()[transition].target;
                if (target && !m_shadows[transition])
                    m_open.push_back(*target);
            }
        }
    }

    const ChartModel& m_chart;
    std::vector<std::optional<std::size_t>> m_shadows;
    std::vector<bool> m_isEntered;
    std::vector<bool> m_isActive;
    std::vector<std::size_t> m_open;
};

void reportUnreachable(const ChartModel& chart, FindingReport& report)
{
    if (!chart.start() || !chart.isWhole())
        return; // what is wrong is the start, or what could not be read and may lead anywhere
    Reachability reachability(chart);
    reachability.startAt(*chart.start());
    for (std::size_t i = 0; i < chart.states().size(); ++i) {
        const ChartState& state = chart.states()[i];
        const bool isInside = state.parent && !reachability.isReached(*state.parent); // told of its parent
        if (!reachability.isReached(i) && !isInside) {
            report.addAtKey({FindingKind::unreachableState,
                             formatText("'{}': nothing leads to this state", state.identifier)},
                            state.place.path());
        }
    }
}

} // namespace

void lintStates(const CheckedDefinition& checked, FindingReport& report)
{
    for (const ChartState& state : checked.chart.states()) {
        if (!state.hasUnknownTypeWord())
            continue;
        JsonPath path = state.place.path();
        path.emplace_back("type");
        report.addAt(
            {FindingKind::unknownStateType,
             formatText("'{}': a state is \"atomic\", \"compound\" or \"parallel\"", state.identifier)},
            path);
    }
    reportUnreachable(checked.chart, report);
}
