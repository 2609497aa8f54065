#ifndef STANDINGWORLD_H
#define STANDINGWORLD_H

#include "statechart/check/standingreadings.h"

#include <map>

/// What the standing things are taken to be, and which conditions hold then: evaluated by the language
/// itself, so that a finding rests on values that a run can have. Only what was decided is assumed; a
/// condition that needs more names it.
class StandingWorld
{
public:
    StandingWorld(const ConstantFolding& folding, StandingReadings& readings)
        : m_folding(folding), m_readings(readings)
    {}

    /// Forgets all, and takes the values that these transitions compare with for the ones that matter.
    void beginWith(const ChartModel& chart, const std::vector<std::size_t>& transitions);

    /// Whether the conditions of a transition hold; none when that is not known, or not yet: then wanted() is
    /// what it depends on.
    std::optional<bool> holds(const ChartTransition& transition);

    const std::optional<StandingThing>& wanted() const { return m_wanted; }

    /// The values that are worth a try, the edges of the thing's own pin first.
    std::vector<double> candidatesFor(const StandingThing& thing) const;

    void decide(const std::string& key, double value);
    void forget(const std::string& key);

    /// What the conditions cost that were evaluated since beginWith(), in steps from state to state.
    std::size_t evaluationSteps() const { return m_evaluationSteps; }

private:
    std::optional<bool> truthOf(const CheckedText& condition);
    JsonValue substituted(const JsonValue& form);
    std::optional<JsonValue> substitute(const JsonObject& call);
    double answerOf(const StandingReading& reading, double value) const;
    void collect(const JsonValue& form);
    void addNumber(double number);
    std::vector<double> numbersFor(const StandingThing& thing) const;
    bool isConsistent(const StandingThing& thing, double value) const;
    bool fitsEdge(const StandingThing& thing, double value) const;
    std::optional<double> decided(const std::string& key) const;
    std::size_t edgePinIndex(const std::string& pin) const;
    static double risingEdgeOf(std::size_t pin) { return 1.0 + 2.0 * static_cast<double>(pin); }

    struct Truth
    {
        std::size_t decision; // it was found after so many decisions
        std::optional<bool> value;
    };

    const ConstantFolding& m_folding;
    StandingReadings& m_readings;
    std::map<std::string, double> m_values;
    std::optional<StandingThing> m_wanted;
    std::set<double> m_numbers;          // that the conditions name
    std::vector<std::string> m_edgePins; // in the order of the values of "edge"
    std::unordered_map<std::string, std::size_t> m_edgePinIndices;
    std::set<std::string> m_wholeBuses;                   // keys of buses that are read as a number
    std::unordered_map<std::string_view, Truth> m_truths; // by source
    std::size_t m_decisions = 0;                          // changes of m_values so far
    std::size_t m_evaluationSteps = 0;
};

#endif
