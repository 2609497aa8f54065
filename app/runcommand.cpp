#include "deviceinput.h"
#include "devicerun.h"
#include "exitcode.h"
#include "simulator/variablevalue.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <memory>
#include <set>

namespace {

struct Arguments
{
    std::string device;
    std::vector<std::string> stimuli;
    std::vector<std::string> parameters;
    std::string until;
    std::string resolution;
    std::string replay;
    std::string timeLimit = "10";
    std::string leastCoverage;
    RunReports reports;
};

constexpr auto explanation =
    "DEVICE is a definition, a compiled device or a bundle (*.hvdsc.zip), told by content; - is standard "
    "input.\n"
    "Text of print goes to standard output, a line a call.\n\n"
    "A stimulus is one JSON object; every key may be missing:\n"
    "  \"clocks\": [{\"pin\", \"period\", \"start\": 0, \"duty\": 0.5}]  high first at start\n"
    "  \"events\": [{\"time\", \"pin\" or \"bus\", \"value\"}]         what the inputs are driven to\n"
    "  \"expect\": [{\"time\", \"pin\", \"bus\" or \"variable\", \"value\"}]\n"
    "  \"parameters\": {NAME: VALUE}\n"
    "  \"until\": TIME\n"
    "Times are seconds, with an engineering suffix if you like (\"10n\"). A run without an end of its own "
    "ends with\nthe last event or expectation. With several stimuli the device runs once for each, from "
    "time 0, and coverage\ncounts them all. A failed expectation makes the exit code 1.";

std::pair<std::string, std::string> parameterOf(const std::string& argument)
{
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UsageError("--param: not of the form NAME=VALUE: '" + argument + "'");
    return {argument.substr(0, equals), argument.substr(equals + 1)};
}

/// A number of the command line, which the locale has no say in.
double numberOf(const std::string& option, const std::string& text, double least, double most)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !(number >= least && number <= most))
        throw UsageError(option + ": '" + text + "' is no number from " + textOf(DeviceVariableValue(least)) +
                         " to " + textOf(DeviceVariableValue(most)));
    return number;
}

void checkTimes(const RunInputs& inputs)
{
    try {
        untilOf(inputs);
    } catch (const std::runtime_error& error) {
        throw UsageError(error.what());
    }
}

/// Standard input can be read once.
void checkStandardInput(const Arguments& arguments)
{
    const auto count = std::ranges::count(arguments.stimuli, "-") + (arguments.device == "-" ? 1 : 0);
    if (count > 1)
        throw UsageError("standard input (-) is given more than once");
}

/// Files of one name would overwrite each other.
void checkOutputs(const RunReports& reports)
{
    if (reports.viewerFile && (!reports.dump || *reports.dump == "-"))
        throw UsageError("--gtkw goes with --vcd FILE");
    std::set<std::string> paths;
    if (reports.viewerFile)
        paths.insert(viewerFileOf(*reports.dump));
    for (const auto* const path : {&reports.dump, &reports.coverage, &reports.lcov, &reports.recording})
        if (*path && **path != "-" && !paths.insert(**path).second)
            throw UsageError("two files to write are called '" + **path + "'");
}

/// What a recording has already must not be given beside it.
void checkReplay(const Arguments& arguments)
{
    if (!arguments.device.empty() || !arguments.stimuli.empty() || !arguments.parameters.empty() ||
        !arguments.until.empty() || !arguments.resolution.empty())
        throw UsageError("--replay repeats a run as it was: no DEVICE, --stimulus, --param, --until or "
                         "--resolution beside it");
}

RunInputs inputsOf(const Arguments& arguments)
{
    if (!arguments.replay.empty()) {
        checkReplay(arguments);
        try {
            return readRecording(readTextInput(arguments.replay));
        } catch (const std::exception& error) {
            throw std::runtime_error(shownInputName(arguments.replay) + ": " + error.what());
        }
    }
    if (arguments.device.empty())
        throw UsageError("DEVICE is missing");
    RunInputs inputs;
    for (const std::string& parameter : arguments.parameters)
        inputs.parameters.push_back(parameterOf(parameter));
    inputs.device = shownInputName(arguments.device);
    inputs.texts = readDeviceInput(arguments.device);
    for (const std::string& stimulus : arguments.stimuli)
        inputs.stimuli.push_back({shownInputName(stimulus), readTextInput(stimulus)});
    if (!arguments.until.empty())
        inputs.until = arguments.until;
    if (!arguments.resolution.empty())
        inputs.resolution = arguments.resolution;
    checkTimes(inputs);
    return inputs;
}

int run(const Arguments& arguments)
{
    RunReports reports = arguments.reports;
    if (!arguments.leastCoverage.empty())
        reports.leastCoverage = numberOf("--fail-under", arguments.leastCoverage, 0, 100);
    checkStandardInput(arguments);
    checkOutputs(reports);
    const double timeLimit = numberOf("--time-limit", arguments.timeLimit, 0.001, 1e6);
    const RunInputs inputs = inputsOf(arguments);
    if (reports.dump && inputs.stimuli.size() > 1)
        throw UsageError("--vcd takes one run: give one --stimulus");
    return runDevice(inputs, reports, timeLimit);
}

} // namespace

void addRunCommand(CLI::App& application, Action& action)
{
    CLI::App* command = application.add_subcommand("run", "Simulate a device");
    const auto arguments = std::make_shared<Arguments>();
    RunReports& reports = arguments->reports;
    command->add_option("DEVICE", arguments->device, "The device to run");
    command->add_option("--stimulus", arguments->stimuli, "What is done to the device and expected of it")
        ->type_name("FILE")
        ->expected(1)
        ->take_all();
    command->add_option("--until", arguments->until, "When to end; wins over the stimulus")
        ->type_name("TIME");
    command->add_option("--param", arguments->parameters, "A parameter's value; wins over the stimulus")
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->take_all();
    command->add_option("--resolution", arguments->resolution, "The tick of time, a power of ten [1f]")
        ->type_name("TIME");
    command
        ->add_option("--time-limit", arguments->timeLimit,
                     "Seconds that one action of the device may take, from 0.001 to a million [10]")
        ->type_name("SECONDS");
    command->add_flag("--trace", reports.trace, "Print what happens, a line each, with its time");
    command->add_option("--vcd", reports.dump, "Write waveforms as a value change dump")->type_name("FILE");
    command->add_flag("--gtkw", reports.viewerFile,
                      "Beside the waveforms, write a save file of GTKWave that shows them in order");
    command->add_option("--coverage", reports.coverage, "Write as JSON what was used of the chart")
        ->type_name("FILE");
    command->add_option("--lcov", reports.lcov, "Write the same as a tracefile of LCOV")->type_name("FILE");
    command
        ->add_option("--fail-under", arguments->leastCoverage,
                     "Fail when less was used of states, transitions and outcomes together")
        ->type_name("PERCENT");
    command->add_option("--record", reports.recording, "Write all inputs of the run into one file")
        ->type_name("FILE");
    command->add_option("--replay", arguments->replay, "Repeat the run of a recording")->type_name("FILE");
    command->footer(explanation);
    command->callback([arguments, &action] { action = [arguments] { return run(*arguments); }; });
}
