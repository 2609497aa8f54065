#ifndef TRACEWRITER_H
#define TRACEWRITER_H

#include "simulator/simulationlistener.h"

#include <functional>
#include <string>
#include <vector>

/// Writes what happens in a run as lines of text, each with the time before it: "10n: enter state 'idle'".
class TraceWriter : public SimulationListener
{
public:
    using Sink = std::function<void(std::string_view lines)>;

    explicit TraceWriter(Sink sink) : m_sink(std::move(sink)) {}

    void start(const SimulatedDevice& device) override;
    void signalChanged(const Signal& signal) override;
    void startBegins() override;
    void changeBegins(const InputChangeEvent& event) override;
    void wakeBegins(std::uint64_t wakeIdentifier, const Transition* transition) override;
    void eventEnds() override;
    void stateEntered(const AbstractState& state) override;
    void stateExited(const AbstractState& state) override;
    void transitionTaken(const Transition& transition) override;
    void wakeArmed(std::uint64_t wakeIdentifier, const Transition& transition, Ticks time) override;

private:
    void write(const std::string& what);

    Sink m_sink;
    const SimulatedDevice* m_device = nullptr;
    std::vector<const AbstractState*> m_known; // the atomic states known to be active
};

#endif
