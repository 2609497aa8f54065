#ifndef SIMULATION_H
#define SIMULATION_H

#include "simulator/expectations.h"
#include "simulator/inputfeed.h"
#include "simulator/simulateddevice.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What a run needs beside the device.
struct SimulationSetup
{
    Stimulus stimulus;
    ParameterOverrides parameters; ///< these win over those of the stimulus
    std::optional<Ticks> until;    ///< this wins over that of the stimulus
    TimeResolution resolution;
};

struct SimulationResult
{
    Ticks end = 0;
    std::vector<FailedExpectation> failedExpectations;
    std::size_t expectationsNotReached = 0;
    std::string error; ///< what stopped the run, with time and place; empty when nothing did
    std::uint64_t eventCount = 0;

    bool succeeded() const
    {
        return error.empty() && failedExpectations.empty() && expectationsNotReached == 0;
    }
};

/// One run of a device. At time 0 the chart starts. From then on, at each time: first the outputs change that
/// were asked to; then all input changes of the time are applied, and the device is told of each in the order
/// of the stimulus; then the wakes come. What any of these brings about at the same time follows in the same
/// order. When nothing is left to do at a time, the expectations are looked at. Equal inputs give equal runs.
class Simulation
{
public:
    /// @throws std::runtime_error for a stimulus that does not fit the device, and when nothing says when to
    /// end
    Simulation(std::shared_ptr<const DigitalDeviceStateChart> chart, const DeviceOrder& order,
               const SimulationSetup& setup, std::span<SimulationListener* const> listeners);

    SimulatedDevice& device() { return m_device; }

    /// When the run ends.
    Ticks end() const { return m_until; }

    /// To be called once.
    SimulationResult run();

    /// The events at one time that a run takes before it gives up: time does not go on.
    static constexpr std::uint64_t maximumEventsAtOneTime = 1'000'000;

private:
    void runToEnd(SimulationResult& result);
    Ticks nextTime() const;
    void goTo(Ticks time, SimulationResult& result);
    void handleNext();
    void applyInputs();
    void countEvent();
    std::string located(const char* what) const;

    std::vector<SimulationListener*> m_listeners;
    SimulatedDevice m_device;
    InputFeed m_feed;
    Expectations m_expectations;
    Ticks m_until;
    std::uint64_t m_eventCount = 0;
    std::uint64_t m_eventsAtThisTime = 0;
    std::vector<InputDrive> m_drives; // kept for their memory
    std::vector<InputChangeEvent> m_changes;
};

#endif
