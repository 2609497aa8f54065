// Bits that a simulated UART transmitter sends, beside one written by hand.
#include "handwrittenuart.h"
#include "simulator/devicefile.h"
#include "simulator/simulation.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

constexpr int byteCount = 1000;
constexpr int bitsOfByte = 10; // with start and stop bit
constexpr Ticks bitTime = 8'680'555'556;
constexpr Ticks byteTime = 12 * bitTime;

std::vector<std::uint8_t> bytes()
{
    std::vector<std::uint8_t> result;
    for (int index = 0; index < byteCount; ++index)
        result.push_back(static_cast<std::uint8_t>(index * 37 + 11));
    return result;
}

Stimulus stimulusOf(const std::vector<std::uint8_t>& sent)
{
    Stimulus stimulus;
    stimulus.parameters = {{"BAUD_RATE", "115.2k"}, {"PARITY", "0"}, {"STOP_BITS", "1"}};
    Ticks time = byteTime;
    for (const std::uint8_t byte : sent) {
        stimulus.events.push_back({"", time, TargetKind::bus, "data", std::int32_t{byte}});
        stimulus.events.push_back({"", time, TargetKind::pin, "send", 1});
        stimulus.events.push_back({"", time + bitTime, TargetKind::pin, "send", 0});
        time += byteTime;
    }
    stimulus.until = time + byteTime;
    return stimulus;
}

std::string transmitter()
{
    std::ifstream file(PROJECT_FOLDER "/examples/charts/uart-transmitter/definition.json");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Sees to it that the bytes were sent.
class LineChanges : public SimulationListener
{
public:
    void signalChanged(const Signal& signal) override { count += signal.name == "txd" ? 1 : 0; }

    std::uint64_t count = 0;
};

void simulatedUart(benchmark::State& state)
{
    const std::vector<std::uint8_t> sent = bytes();
    const JsonObject compiled = compiledDeviceOf({transmitter(), std::nullopt});
    const DeviceOrder order(compiled);
    const std::shared_ptr<const DigitalDeviceStateChart> chart =
        linkDeviceStateChart(compiled, DDCodeBuilderFactory::createCodeBuilder());
    SimulationSetup setup;
    setup.stimulus = stimulusOf(sent);
    const std::uint64_t expected = sendByHand(sent, bitTime, byteTime);
    for (auto _ : state) {
        LineChanges changes;
        std::vector<SimulationListener*> listeners{&changes};
        Simulation simulation(chart, order, setup, listeners);
        const SimulationResult result = simulation.run();
        if (!result.succeeded() || changes.count != expected)
            state.SkipWithError("the bytes were not sent");
    }
    state.SetItemsProcessed(state.iterations() * byteCount * bitsOfByte);
}

void handWrittenUart(benchmark::State& state)
{
    const std::vector<std::uint8_t> sent = bytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(sendByHand(sent, bitTime, byteTime));
    state.SetItemsProcessed(state.iterations() * byteCount * bitsOfByte);
}

BENCHMARK(simulatedUart)->Name("simulated UART, a bit/halvorin");
BENCHMARK(handWrittenUart)->Name("simulated UART, a bit/limit");

} // namespace
