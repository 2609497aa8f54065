#include "simulator/devicefile.h"
#include "simulator/simulation.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr auto device = R"json({
    "states": {
        "a": {"type": "atomic", "transitions": {
            "t": {"target": "b", "order": 0, "event": "change", "conditions": "isPositiveEdge(\"p\")",
                  "actions": "writeBus(\"o\", getParameter_int64_t(\"N\"));"}}},
        "b": {"type": "atomic", "transitions": {
            "u": {"target": "a", "order": 0, "event": "wake", "wakeTimeCalc": "getParameter_double(\"T\")"}}}
    },
    "start": "a", "outputDelay": "1n",
    "inputs": {"p": {"type": "pin"}, "b": {"type": "bus", "width": 8, "dataType": "uint64_t"},
               "s": {"type": "bus", "width": 64, "dataType": "int64_t", "encoding": "OffsetBinary"}},
    "outputs": {"q": {"type": "pin", "initial": "0"},
                "o": {"type": "bus", "width": 4, "dataType": "int64_t", "encoding": "TwosComplement", "initial": 0}},
    "parameters": {"N": {"type": "int64_t", "value": 3}, "T": {"type": "double", "value": "1n"},
                   "U": {"type": "uint64_t", "value": 1}},
    "variables": {"v": {"type": "int", "value": 0}, "d": {"type": "double", "value": 0},
                  "t": {"type": "string", "value": ""}, "f": {"type": "bool", "value": false}}
})json";

/// The edges that the clocks of a stimulus make until it ends.
double edgesOf(const Stimulus& stimulus)
{
    const auto end = static_cast<double>(stimulus.until.value_or(stimulus.lastTime().value_or(0)));
    double edges = 0;
    for (const StimulusClock& clock : stimulus.clocks)
        edges += 2 * end / static_cast<double>(clock.period);
    return edges;
}

/// Time goes on, no time is looked at that is behind the end, and levels stay within the lines of a signal.
class Watch : public SimulationListener
{
public:
    explicit Watch(Ticks end) : m_end(end) {}

    void signalChanged(const Signal& signal) override
    {
        if ((signal.lines & ~signal.mask()) != 0)
            std::abort();
    }

    void timeEnds(Ticks time) override
    {
        if (time < m_last || time > m_end)
            std::abort();
        m_last = time;
    }

private:
    Ticks m_end;
    Ticks m_last = 0;
};

void run(const Stimulus& stimulus, TimeResolution resolution)
{
    static const JsonObject compiled = compiledDeviceOf({device, std::nullopt});
    static const DeviceOrder order(compiled);
    SimulationSetup setup;
    setup.stimulus = stimulus;
    setup.resolution = resolution;
    const Ticks end = stimulus.until.value_or(stimulus.lastTime().value_or(0));
    Watch watch(end);
    SimulationListener* const listeners[] = {&watch};
    Simulation simulation(linkDeviceStateChart(compiled, DDCodeBuilderFactory::createCodeBuilder()), order,
                          setup, listeners);
    const SimulationResult result = simulation.run();
    if (result.end > end ||
        (result.error.empty() && result.expectationsNotReached > stimulus.expectations.size()))
        std::abort();
}

} // namespace

/// A stimulus is refused with a message, or a device runs with it to the end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const char* const tick : {"1f", "1n", "1"}) {
        try {
            const TimeResolution resolution = TimeResolution::fromText(tick);
            const Stimulus stimulus = readStimulus(text, resolution);
            if (edgesOf(stimulus) < 1000)
                run(stimulus, resolution);
        } catch (const std::exception& error) {
            if (*error.what() == '\0')
                std::abort();
        }
    }
    return 0;
}
