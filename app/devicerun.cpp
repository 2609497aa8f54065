#include "devicerun.h"

#include "HalvCore/temporaryfile.h"
#include "deviceinput.h"
#include "exitcode.h"
#include "reportfiles.h"
#include "reports/coveragecollector.h"
#include "reports/gtkwavesave.h"
#include "reports/lcovtracefile.h"
#include "reports/tracewriter.h"
#include "reports/valuechangedump.h"
#include "runoutput.h"
#include "runprogress.h"
#include "simulator/runguard.h"
#include "simulator/simulation.h"
#include "simulator/variablevalue.h"
#include "standardstreams.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/text/engineeringnumber.h"

#include <filesystem>

namespace {

/// Prints the texts that the device prints, a line a text.
class PrintListener : public SimulationListener
{
public:
    void printed(std::string_view text) override
    {
        RunOutput::print(text);
        RunOutput::print("\n");
    }
};

void saveWhatIsLeft()
{
    RunOutput::flushInSignalHandler();
    Halvorin::System::TemporaryFile::removeAll();
}

/// The scope of a device in its waveforms: its file's name up to the first dot.
std::string scopeName(const std::string& device)
{
    const std::string name = std::filesystem::path(device).filename().native();
    return name.substr(0, std::max<std::size_t>(1, name.find('.')));
}

/// Calls a function whose errors are those of the file of this name.
template <class Function>
auto named(const std::string& name, Function function)
{
    try {
        return function();
    } catch (const DefinitionHasErrors&) {
        throw; // it is told of finding by finding
    } catch (const std::exception& error) {
        throw std::runtime_error(name + ": " + error.what());
    }
}

/// All runs of a device, and what is seen of them.
class DeviceRun
{
public:
    DeviceRun(const RunInputs& inputs, const RunReports& reports, double timeLimit)
        : m_inputs(inputs), m_reports(reports), m_timeLimit(timeLimit),
          m_compiled(named(inputs.device, [&] { return compiledDeviceOf(inputs.texts); })),
          m_order(named(inputs.device, [&] { return DeviceOrder(m_compiled); })),
          m_resolution(TimeResolution::fromText(inputs.resolution)), m_trace(&RunOutput::print)
    {
        m_listeners.push_back(&m_print);
        m_listeners.push_back(&m_progress);
        if (reports.trace)
            m_listeners.push_back(&m_trace);
        if (reports.wantsCoverage())
            m_listeners.push_back(&m_coverage);
        if (reports.dump) {
            m_dumpText.emplace();
            m_dump.emplace(m_dumpText->stream(), scopeName(inputs.device));
            m_listeners.push_back(&*m_dump);
        }
    }

    int run()
    {
        if (m_inputs.stimuli.empty())
            runOnce({});
        for (const NamedText& stimulus : m_inputs.stimuli)
            runOnce(stimulus);
        RunOutput::flush();
        reportCoverage();
        m_files.write();
        return m_exitCode;
    }

private:
    std::shared_ptr<const DigitalDeviceStateChart> link() const
    {
        return named(m_inputs.device, [&] {
            return linkDeviceStateChart(m_compiled, DDCodeBuilderFactory::createCodeBuilder());
        });
    }

    SimulationSetup setupOf(const NamedText& stimulus) const
    {
        SimulationSetup setup;
        setup.resolution = m_resolution;
        setup.parameters = m_inputs.parameters;
        setup.until = untilOf(m_inputs);
        if (!stimulus.name.empty())
            setup.stimulus = readStimulus(stimulus.text, m_resolution);
        return setup;
    }

    std::unique_ptr<Simulation> simulationOf(const NamedText& stimulus)
    {
        auto chart = link();
        // What the command line gives is no fault of the stimulus.
        named(m_inputs.device, [&] { return ParameterTable(*chart, m_inputs.parameters); });
        return named(stimulus.name.empty() ? m_inputs.device : stimulus.name, [&] {
            return std::make_unique<Simulation>(std::move(chart), m_order, setupOf(stimulus), m_listeners);
        });
    }

    void runOnce(const NamedText& stimulus)
    {
        const std::unique_ptr<Simulation> simulation = simulationOf(stimulus);
        m_progress.setEnd(simulation->end());
        SimulationResult result;
        {
            const RunGuard guard(simulation->device().runningCode(), m_inputs.device,
                                 std::chrono::duration<double>(m_timeLimit), saveWhatIsLeft);
            result = simulation->run();
        }
        RunOutput::flush();
        report(stimulus, result);
        if (m_reports.dump)
            addDump(simulation->device());
    }

    void report(const NamedText& stimulus, const SimulationResult& result)
    {
        for (const FailedExpectation& failed : result.failedExpectations)
            StandardStreams::printErrorLine(stimulus.name + ": at " + timeText(failed.time, m_resolution) +
                                            ": " + failed.name + " is " + failed.actual + ", expected " +
                                            failed.expected);
        if (result.expectationsNotReached > 0)
            StandardStreams::printErrorLine(
                stimulus.name + ": the run ended at " + timeText(result.end, m_resolution) + ", before " +
                std::to_string(result.expectationsNotReached) + " of the expectations");
        if (!result.error.empty())
            StandardStreams::printErrorLine(m_inputs.device + ": " + result.error);
        if (!result.succeeded())
            m_exitCode = exitInputHasErrors;
    }

    void addDump(const SimulatedDevice& device)
    {
        m_files.add(*m_reports.dump, *m_dumpText);
        if (!m_reports.viewerFile)
            return;
        const std::string dumpName = std::filesystem::path(*m_reports.dump).filename().native();
        m_files.add(viewerFileOf(*m_reports.dump),
                    gtkwaveSaveText(dumpName, scopeName(m_inputs.device), device));
    }

    void reportCoverage()
    {
        if (m_reports.recording)
            m_files.add(*m_reports.recording, recordingOf(m_inputs));
        if (!m_reports.wantsCoverage())
            return;
        const Coverage& coverage = m_coverage.coverage();
        StandardStreams::printLine("coverage: " + coverageSummary(coverage));
        if (m_reports.coverage)
            m_files.add(*m_reports.coverage, coverageJson(coverage, m_inputs.device));
        if (m_reports.lcov)
            m_files.add(*m_reports.lcov, lcovText(coverage, m_inputs.device, *m_inputs.texts.definition));
        if (m_reports.leastCoverage && coverage.count().percent() < *m_reports.leastCoverage) {
            StandardStreams::reportError("the coverage is below " +
                                         textOf(DeviceVariableValue(*m_reports.leastCoverage)) + " percent");
            m_exitCode = exitInputHasErrors;
        }
    }

    const RunInputs& m_inputs;
    const RunReports& m_reports;
    double m_timeLimit;
    JsonObject m_compiled;
    DeviceOrder m_order;
    TimeResolution m_resolution;
    PrintListener m_print;
    RunProgress m_progress;
    TraceWriter m_trace;
    CoverageCollector m_coverage;
    std::optional<ReportText> m_dumpText;
    std::optional<ValueChangeDump> m_dump;
    std::vector<SimulationListener*> m_listeners;
    ReportFiles m_files;
    int m_exitCode = exitDone;
};

} // namespace

std::optional<Ticks> untilOf(const RunInputs& inputs)
{
    const TimeResolution resolution = TimeResolution::fromText(inputs.resolution);
    if (!inputs.until)
        return std::nullopt;
    try {
        return resolution.ticks(parseEngineeringNumber(*inputs.until), "it");
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("--until '" + *inputs.until + "': " + error.what());
    }
}

std::string viewerFileOf(const std::string& dump)
{
    return std::filesystem::path(dump).replace_extension(".gtkw").native();
}

int runDevice(const RunInputs& inputs, const RunReports& reports, double timeLimit)
{
    if (reports.lcov && !inputs.texts.definition)
        throw UsageError("--lcov needs a definition: its lines are what is counted");
    try {
        return DeviceRun(inputs, reports, timeLimit).run();
    } catch (const DefinitionHasErrors&) {
        reportErrors(inputs.device, *inputs.texts.definition);
        return exitInputHasErrors;
    }
}
