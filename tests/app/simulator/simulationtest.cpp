#include "simulator/simulation.h"
#include "reports/tracewriter.h"
#include "simulator/devicefile.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"
#include "support/casefile.h"
#include "testfolders.h"

namespace {

/// Adds the texts that a device prints to a trace.
class PrintsInTrace : public SimulationListener
{
public:
    explicit PrintsInTrace(std::string& trace) : m_trace(trace) {}

    void printed(std::string_view text) override { m_trace.append(text).append("\n"); }

private:
    std::string& m_trace;
};

struct Outcome
{
    std::string trace;
    SimulationResult result;
    std::string refused; // why there was no run
};

std::string messageOf(const std::exception& error)
{
    return error.what();
}

std::vector<std::string> splitAt(const std::string& text, char separator)
{
    std::istringstream stream(text);
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

std::string inBraces(const std::string& members)
{
    return "{" + members + "}";
}

/// Runs the device of a case.
Outcome runCase(const TestCase& test)
{
    Outcome outcome;
    try {
        const JsonObject compiled = compiledDeviceOf({inBraces(test.at("device")), std::nullopt});
        const DeviceOrder order(compiled);
        SimulationSetup setup;
        setup.resolution = TimeResolution::fromText(test.valueOr("resolution", "1f"));
        setup.stimulus = readStimulus(inBraces(test.valueOr("stimulus", "")), setup.resolution);
        for (const std::string& parameter : test.all("parameter")) {
            const std::vector<std::string> nameAndValue = splitAt(parameter, '=');
            setup.parameters.emplace_back(nameAndValue.at(0), nameAndValue.at(1));
        }
        PrintsInTrace prints(outcome.trace);
        TraceWriter trace([&](std::string_view lines) { outcome.trace += lines; });
        std::vector<SimulationListener*> listeners{&prints};
        if (test.has("trace"))
            listeners.push_back(&trace);
        Simulation simulation(linkDeviceStateChart(compiled, DDCodeBuilderFactory::createCodeBuilder()),
                              order, setup, listeners);
        outcome.result = simulation.run();
    } catch (const std::exception& error) {
        outcome.refused = messageOf(error);
    }
    return outcome;
}

class SimulationCase : public testing::TestWithParam<TestCase>
{};

std::string failuresOf(const SimulationResult& result)
{
    std::string text;
    for (const FailedExpectation& failed : result.failedExpectations)
        text += timeText(failed.time, {}) + ": " + failed.name + " is " + failed.actual + ", expected " +
                failed.expected + "\n";
    return text;
}

std::string withLineEnd(std::string text)
{
    if (!text.empty() && !text.ends_with('\n'))
        text += '\n';
    return text;
}

} // namespace

TEST_P(SimulationCase, Runs)
{
    const TestCase& test = GetParam();
    SCOPED_TRACE(test.place());
    const Outcome outcome = runCase(test);
    EXPECT_EQ(outcome.refused, test.valueOr("refused", ""));
    EXPECT_EQ(outcome.result.error, test.valueOr("error", ""));
    EXPECT_EQ(failuresOf(outcome.result), withLineEnd(test.valueOr("fails", "")));
    EXPECT_EQ(outcome.trace, withLineEnd(test.valueOr("trace", test.valueOr("prints", ""))));
}

INSTANTIATE_TEST_SUITE_P(Cases, SimulationCase,
                         testing::ValuesIn(readCaseFolder(TEST_SOURCE_FOLDER "/cases")),
                         [](const auto& given) { return identifierOf(given.param); });
