#include "chartmaker.h"

#include "statechart/text/format.h"

#include <random>

namespace {

constexpr int maximumDepth = 5;

class ChartMaker
{
public:
    explicit ChartMaker(std::uint64_t seed) : m_random(seed) {}

    ChartPlan make()
    {
        ChartPlan plan;
        m_statesLeft = below(14) + 1;
        do
            plan.states.push_back(state(0));
        while (m_statesLeft > 0);
        plan.start = anyOf(plan.states).identifier;
        if (oneIn(8))
            renameOne(plan);
        for (PlannedState& top : plan.states)
            addTransitions(top);
        for (int count = below(12) + 4; count > 0; --count)
            plan.events.push_back(event());
        return plan;
    }

private:
    // No distribution of the standard library: what they give is not the same everywhere.
    int below(int end) { return static_cast<int>(m_random() % static_cast<std::uint64_t>(end)); }
    bool oneIn(int count) { return below(count) == 0; }

    template <class T>
    const T& anyOf(const std::vector<T>& list)
    {
        return list[m_random() % list.size()];
    }

    PlannedState state(int depth)
    {
        PlannedState made;
        made.identifier = formatText("s{}", m_identifiers.size());
        m_identifiers.push_back(made.identifier);
        --m_statesLeft;
        made.entryActions = below(3);
        made.exitActions = below(3);
        if (depth < maximumDepth && m_statesLeft > 0 && !oneIn(3)) {
            made.kind = oneIn(2) ? PlannedKind::parallel : PlannedKind::compound;
            for (int count = below(3) + 1; count > 0 && m_statesLeft > 0; --count)
                made.substates.push_back(state(depth + 1));
            if (made.kind == PlannedKind::compound)
                made.initial = anyOf(made.substates).identifier;
        } else if (oneIn(20)) {
            made.kind = PlannedKind::parallel;
        }
        return made;
    }

    /// A nested state bears the identifier of one at the top.
    void renameOne(ChartPlan& plan)
    {
        const std::string identifier = anyOf(plan.states).identifier;
        std::vector<PlannedState>* siblings = &plan.states;
        PlannedState* chosen = nullptr;
        PlannedState* parent = nullptr;
        while (!siblings->empty() && (chosen == nullptr || oneIn(2))) {
            PlannedState& next = (*siblings)[m_random() % siblings->size()];
            parent = chosen;
            chosen = &next;
            siblings = &next.substates;
        }
        if (parent == nullptr)
            return;
        if (parent->initial == chosen->identifier)
            parent->initial = identifier;
        std::erase(m_identifiers, chosen->identifier);
        chosen->identifier = identifier;
    }

    void addTransitions(PlannedState& state)
    {
        for (int count = below(4); count > 0; --count)
            state.transitions.push_back(transition());
        for (PlannedState& substate : state.substates)
            addTransitions(substate);
    }

    PlannedTransition transition()
    {
        PlannedTransition made;
        made.identifier = formatText("t{}", m_transitions++);
        made.target = anyOf(m_identifiers);
        made.order = below(4) - 2;
        const int kind = below(20);
        if (kind < 10)
            made.event = name();
        else if (kind < 12)
            made.event = "change";
        else if (kind < 15)
            made.event = "wake";
        else if (kind < 16)
            made.event = "init";
        made.hasWakeTime = made.event == "wake" && !oneIn(6);
        // without a trigger and without a condition a chain rarely ends
        for (int count = below(3) + (made.event || oneIn(6) ? 0 : 1); count > 0; --count)
            made.conditions.push_back(formatText("p{}", below(4)));
        made.actions = below(3);
        return made;
    }

    std::string name() { return formatText("e{}", below(3)); }

    PlannedEvent event()
    {
        const int kind = below(20);
        if (kind < 11)
            return {PlannedEvent::Kind::named, name(), 0};
        if (kind < 13)
            return {PlannedEvent::Kind::change, "", 0};
        if (kind < 19)
            return {PlannedEvent::Kind::wake, "", static_cast<std::uint64_t>(below(12))};
        return {PlannedEvent::Kind::initialisation, "", 0};
    }

    std::mt19937_64 m_random;
    std::vector<std::string> m_identifiers;
    int m_statesLeft = 0;
    int m_transitions = 0;
};

} // namespace

ChartPlan randomChart(std::uint64_t seed)
{
    return ChartMaker(seed).make();
}
