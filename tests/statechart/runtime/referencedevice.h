#ifndef REFERENCEDEVICE_H
#define REFERENCEDEVICE_H

#include "answers.h"
#include "chartplan.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// Runs a chart by the rules of charts word for word, without a thought for time: what AbstractActor and
/// AbstractDigitalDeviceActor are held against. It shares nothing with them, nor with the linker.
class ReferenceDevice
{
public:
    using Trace = std::vector<std::string>;

    /// @param plan must outlive the device
    ReferenceDevice(const ChartPlan& plan, Answers answers, int entriesLeft);

    void start();
    void dispatch(const PlannedEvent& event);

    /// What has happened, in the words of TraceActor.
    Trace trace;

    Trace active() const;
    std::map<std::uint64_t, std::string> pendingWakes() const;

private:
    struct State;

    struct Transition
    {
        const PlannedTransition* plan;
        State* source;
        State* target;
    };

    struct State
    {
        const PlannedState* plan;
        State* parent;
        std::vector<State*> substates;
        std::vector<Transition> transitions;
    };

    using States = std::vector<State*>;

    // linking
    State* link(const PlannedState& plan, State* parent);
    void linkTransitions(const PlannedState& plan);

    // states
    static int depth(const State* state);
    static bool isProperDescendant(const State* candidate, const State* ancestor);
    bool isActive(const State* state) const;

    // the run
    bool eventMatches(const Transition& transition, const PlannedEvent& event) const;
    bool conditionsHold(const Transition& transition);
    void dispatchInBase(const PlannedEvent& event);
    const Transition* firstMatch(const State& state, const PlannedEvent& event);
    void execute(const Transition& transition);
    void enter(State* state, States& entering, std::vector<const Transition*>& pending);
    void stateEntered(State* state);
    void stateExited(State* state);
    void print(const std::string& what, const std::string& owner, int count);

    Answers m_answers;
    int m_entriesLeft;

    std::vector<std::unique_ptr<State>> m_owned;
    std::unordered_map<std::string, State*> m_states;
    PlannedState m_initialPlan;
    PlannedTransition m_initialTransitionPlan;
    State* m_initialState = nullptr;

    States m_active;
    std::uint64_t m_nextWakeIdentifier = 1;
    std::map<std::uint64_t, const Transition*> m_pendingWakes;
    States m_newlyEntered;
};

#endif
