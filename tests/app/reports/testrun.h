#ifndef TESTRUN_H
#define TESTRUN_H

#include "simulator/devicefile.h"
#include "simulator/simulation.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"

#include <string>
#include <vector>

/// A run of a device that listeners are told of, in ticks of a nanosecond.
class TestRun
{
public:
    /// @param device,stimulus what stands between the braces of the JSON object
    TestRun(const std::string& device, const std::string& stimulus,
            std::vector<SimulationListener*> listeners)
        : m_compiled(compiledDeviceOf({"{" + device + "}", std::nullopt})), m_order(m_compiled),
          m_listeners(std::move(listeners)),
          m_simulation(linkDeviceStateChart(m_compiled, DDCodeBuilderFactory::createCodeBuilder()), m_order,
                       setupOf("{" + stimulus + "}"), m_listeners),
          m_result(m_simulation.run())
    {}

    const SimulatedDevice& device() { return m_simulation.device(); }
    const SimulationResult& result() const { return m_result; }

private:
    static SimulationSetup setupOf(const std::string& stimulus)
    {
        SimulationSetup setup;
        setup.resolution = TimeResolution::fromText("1n");
        setup.stimulus = readStimulus(stimulus, setup.resolution);
        return setup;
    }

    JsonObject m_compiled;
    DeviceOrder m_order;
    std::vector<SimulationListener*> m_listeners;
    Simulation m_simulation;
    SimulationResult m_result;
};

#endif
