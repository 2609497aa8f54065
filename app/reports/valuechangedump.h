#ifndef VALUECHANGEDUMP_H
#define VALUECHANGEDUMP_H

#include "reports/activelevels.h"
#include "simulator/simulationlistener.h"

#include <iosfwd>
#include <string>
#include <unordered_map>
#include <vector>

/// Writes the pins, buses, variables and active states of a run as a value change dump (IEEE 1364-2005,
/// clause 18), which any waveform viewer reads. Pins and buses stand in the scope of the device, a bus with
/// the levels of its lines; variables in the scope "variables"; and in the scope "states" there is a text
/// for every level, by the name of the state that it is the inside of, or "chart": the state that is active
/// on it, or "-". Texts are of the kind "string", which the standard does not have and the viewers in use
/// read. One time has one value of each, the last.
class ValueChangeDump : public SimulationListener
{
public:
    /// @param name of the device's scope
    ValueChangeDump(std::ostream& output, std::string name) : m_output(output), m_name(std::move(name)) {}

    void start(const SimulatedDevice& device) override;
    void signalChanged(const Signal& signal) override;
    void variableChanged(const std::string& name, const DeviceVariableValue& value) override;
    void stateEntered(const AbstractState&) override { m_statesChanged = true; }
    void stateExited(const AbstractState&) override { m_statesChanged = true; }
    void transitionTaken(const Transition&) override { m_statesChanged = true; }
    void timeEnds(Ticks time) override;
    void finish(Ticks time) override;

private:
    /// Something that has a value: its code in the file, its value in the words of the file, the value that
    /// stands in the file, and whether it is in m_due.
    struct Entry
    {
        std::string code;
        std::string value;
        std::string written;
        bool isDue;
    };

    std::size_t declare(std::string_view kind, std::uint32_t width, const std::string& name,
                        std::string value);
    void declareSignals();
    void declareVariables();
    void declareLevels();
    void setValue(std::size_t entry, std::string value);
    void updateLevels();

    std::ostream& m_output;
    std::string m_name;
    const SimulatedDevice* m_device = nullptr;
    std::vector<Entry> m_entries;
    std::vector<std::size_t> m_due; // indexes into m_entries
    std::unordered_map<std::string, std::size_t> m_signals;
    std::unordered_map<std::string, std::size_t> m_variables;
    ActiveLevels m_levels;
    std::size_t m_firstLevel = 0; // in m_entries
    bool m_statesChanged = false;
    Ticks m_lastTime = -1; // that stands in the file
};

/// A name as the file takes it: no blanks and no other characters that end a word there.
std::string dumpName(const std::string& name);

#endif
