#include "diagram/scxmlrules.h"

#include <algorithm>

namespace {

using State = std::optional<std::size_t>; // none: around everything

class RuleDifferences
{
public:
    explicit RuleDifferences(const ChartOutline& chart) : m_chart(chart) {}

    std::vector<std::string> find()
    {
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.target)
                compare(transition);
        return std::move(m_notes);
    }

private:
    bool isInside(std::size_t state, State around) const
    {
        return !around || m_chart.isInside(state, *around);
    }

    /// The innermost state around both ends of a transition that has one active state at a time: inside of it
    /// everything is left and entered there.
    State domainOf(const ChartOutline::Transition& transition) const
    {
        State domain = m_chart.states[transition.source].parent;
        while (domain && (m_chart.states[*domain].type != ChartOutline::Type::compound ||
                          !m_chart.isInside(*transition.target, *domain)))
            domain = m_chart.states[*domain].parent;
        return domain;
    }

    /// Whether one can be active while the other is, neither being around the other.
    bool areInDifferentRegions(std::size_t left, std::size_t right) const
    {
        State common = m_chart.states[left].parent;
        while (common && !m_chart.isInside(right, *common))
            common = m_chart.states[*common].parent;
        return common && *common != right && m_chart.states[*common].type == ChartOutline::Type::parallel;
    }

    bool isLeftHere(std::size_t state, const ChartOutline::Transition& transition) const
    {
        return (state == transition.source || m_chart.isInside(transition.source, state)) &&
               !m_chart.isInside(*transition.target, state);
    }

    bool isLeftThere(std::size_t state, const ChartOutline::Transition& transition) const
    {
        const std::size_t source = transition.source;
        return isInside(state, domainOf(transition)) &&
               (state == source || m_chart.isInside(state, source) || m_chart.isInside(source, state) ||
                areInDifferentRegions(state, source));
    }

    /// Whether entering a state enters this one, which is inside of it or the same.
    bool isEnteredBy(std::size_t state, std::size_t entered) const
    {
        for (std::size_t inner = state; inner != entered;) {
            const std::size_t outer = *m_chart.states[inner].parent;
            if (m_chart.states[outer].type == ChartOutline::Type::compound &&
                m_chart.states[outer].initial != inner)
                return false;
            inner = outer;
        }
        return true;
    }

    /// Whether a state that is not in the target is entered on the way to it.
    bool isEnteredThere(std::size_t state, const ChartOutline::Transition& transition) const
    {
        const std::size_t target = *transition.target;
        const State domain = domainOf(transition);
        if (!isInside(state, domain) || state == target || m_chart.isInside(state, target))
            return false;
        if (m_chart.isInside(target, state))
            return true;
        // Another region of a parallel state around the target.
        for (State around = m_chart.states[target].parent; around && isInside(*around, domain);
             around = m_chart.states[*around].parent) {
            if (m_chart.states[*around].type != ChartOutline::Type::parallel ||
                !m_chart.isInside(state, *around))
                continue;
            const auto region =
                std::ranges::find_if(m_chart.states[*around].children, [&](std::size_t child) {
                    return state == child || m_chart.isInside(state, child);
                });
            return *region != target && !m_chart.isInside(target, *region) && isEnteredBy(state, *region);
        }
        return false;
    }

    void compare(const ChartOutline::Transition& transition)
    {
        const std::string start = "transition '" + transition.identifier + "' ";
        for (std::size_t index = 0; index < m_chart.states.size(); ++index) {
            const ChartOutline::State& state = m_chart.states[index];
            if (!state.onExit.empty() && isLeftThere(index, transition) && !isLeftHere(index, transition))
                m_notes.push_back(start + "runs no exit actions of '" + state.path + "'; there it does");
            if (!state.onEntry.empty() && isEnteredThere(index, transition))
                m_notes.push_back(start + "runs no entry actions of '" + state.path + "'; there it does");
        }
        if (!transition.event && !m_chart.states[transition.source].children.empty())
            m_notes.push_back(start + "has no event and keeps what is inside of '" +
                              m_chart.states[transition.source].path +
                              "' from being entered; there it is entered first");
    }

    const ChartOutline& m_chart;
    std::vector<std::string> m_notes;
};

} // namespace

std::vector<std::string> differencesFromScxml(const ChartOutline& chart)
{
    return RuleDifferences(chart).find();
}
