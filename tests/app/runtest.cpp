// "halvorin run": what it takes, what it prints and writes, and how it ends.

#include "runtester.h"
#include "statechart/examples.h"
#include "support/commalocale.h"
#include "support/smalldefinition.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

} // namespace

// --- devices and stimuli

TEST_F(Run, PrintsWhatTheDevicePrintsALineACall)
{
    const ProcessResult result = run({"run", "d.json", "--stimulus", "s.json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "up\ndown\n3\n");
    EXPECT_EQ(result.error, "");
}

TEST_F(Run, MakesTheSameOfADefinitionACompiledDeviceAndABundle)
{
    ASSERT_EQ(run({"compile", "d.json", "d.compiled"}).exitCode, 0);
    ASSERT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    const auto outcome = [&](const char* device) {
        const ProcessResult result =
            run({"run", device, "--stimulus", "s.json", "--trace", "--vcd", "w.vcd", "--coverage", "c.json"});
        EXPECT_EQ(result.exitCode, 0) << result.error;
        std::string coverage = folder.read("c.json");
        return result.output + folder.read("w.vcd") + coverage.substr(coverage.find("\"states\""));
    };
    const std::string expected = outcome("d.json");
    EXPECT_THAT(expected, HasSubstr("10n: take transition 'rise' from 'low' to 'high'\n"));
    EXPECT_EQ(outcome("d.compiled"), expected);
    EXPECT_EQ(outcome("d.hvdsc.zip"), expected);
}

TEST_F(Run, ReadsADeviceOrAStimulusFromStandardInput)
{
    ProcessOptions options = inTemporaryFolder;
    options.input = follower;
    EXPECT_EQ(run({"run", "-", "--stimulus", "s.json"}, options).output, "up\ndown\n3\n");
    options.input = pulse;
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "-"}, options).output, "up\ndown\n3\n");
    options.input = "{";
    EXPECT_EQ(
        run({"run", "d.json", "--stimulus", "-"}, options).error,
        "halvorin: <standard input>: invalid JSON 'expected } or object definition' at line 1 character 2\n");
    run({"bundle", "d.json", "d.hvdsc.zip"});
    options.input = folder.read("d.hvdsc.zip");
    EXPECT_EQ(run({"run", "-", "--stimulus", "s.json"}, options).output, "up\ndown\n3\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
}

TEST_F(Run, WritesReportsToStandardOutputBehindWhatIsPrinted)
{
    run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd", "--coverage", "c.json"});
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--vcd", "-"}).output,
              "up\ndown\n3\n" + folder.read("w.vcd"));
    const std::string summary =
        "coverage: states 2/2 (100.0 %), transitions 2/2 (100.0 %), outcomes 2/4 (50.0 %), "
        "all 6/8 (75.0 %)\n";
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--coverage", "-"}).output,
              "up\ndown\n3\n" + summary + folder.read("c.json"));
}

TEST_F(Run, StartsAnewForEveryStimulusAndCountsThemAllInCoverage)
{
    folder.write("none.json", R"({"until": 0})");
    const ProcessResult result = run({"run", "d.json", "--stimulus", "none.json", "--stimulus", "s.json",
                                      "--stimulus", "s.json", "--lcov", "l.info"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, StartsWith("up\ndown\n3\nup\ndown\n3\ncoverage: states 2/2"));
    EXPECT_THAT(folder.read("l.info"), HasSubstr("FNDA:5,low\nFNDA:2,high\n"));
    EXPECT_THAT(folder.read("l.info"), StartsWith("TN:\nSF:d.json\nFN:3,low\n"));
}

TEST_F(Run, GivesTheCommandLinesParametersAndEndTheLastWord)
{
    folder.write(
        "s.json",
        R"({"events": [{"time": "1n", "pin": "d", "value": 1}, {"time": "2n", "pin": "d", "value": 0}],
                               "parameters": {"P": 4}, "until": "9n"})");
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json"}).output, "up\ndown\n4\n");
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--param", "P=5", "--param", "P=6k"}).output,
              "up\ndown\n6000\n");
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--until", "1n"}).output, "up\n");
}

TEST_F(Run, CountsTimeInTicksOfTheResolution)
{
    const ProcessResult result =
        run({"run", "d.json", "--stimulus", "s.json", "--resolution", "10n", "--trace", "--vcd", "w.vcd"});
    EXPECT_THAT(folder.read("w.vcd"), HasSubstr("$timescale 10 ns $end\n"));
    // an output delay of 1n is no tick, so that the output follows at once
    EXPECT_THAT(result.output, HasSubstr("10n: output pin 'q' = 1\n"));
}

TEST_F(Run, WritesAViewersFileBesideTheWaveforms)
{
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.x.vcd", "--gtkw"}).exitCode, 0);
    EXPECT_THAT(folder.read("w.x.gtkw"), StartsWith("[dumpfile] \"w.x.vcd\"\n"));
}

TEST_F(Run, IsTheSameToTheByteTwice)
{
    const std::vector<std::string> arguments{
        "run", "d.json", "--stimulus", "s.json", "--trace", "--vcd", "-", "--coverage", "-", "--record", "-"};
    const std::string first = run(arguments).output;
    EXPECT_THAT(first, HasSubstr("$dumpvars"));
    EXPECT_EQ(run(arguments).output, first);
}

// --- expectations

TEST_F(Run, FailsWithEveryExpectationThatIsNotMet)
{
    folder.write("s.json", R"({"events": [{"time": "10n", "pin": "d", "value": 1}],
                               "expect": [{"time": "12n", "variable": "n", "value": 7}, {"time": "10n", "pin": "q", "value": 1},
                                          {"time": "11n", "pin": "q", "value": 1}]})");
    const ProcessResult result = run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "up\n");
    EXPECT_EQ(result.error, "s.json: at 10n: q is 0, expected 1\n"
                            "s.json: at 12n: n is 1, expected 7\n");
    EXPECT_TRUE(exists("w.vcd")); // to look for the reason in
}

TEST_F(Run, FailsWithExpectationsBehindItsEnd)
{
    const ProcessResult result = run({"run", "d.json", "--stimulus", "s.json", "--until", "12n"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "s.json: the run ended at 12n, before 1 of the expectations\n");
}

// --- errors before a run

TEST_F(Run, PrintsTheFindingsOfADefinitionWithErrorsAsCheckDoes)
{
    folder.write("bad.json", deviceWith("x = 1;"));
    const ProcessResult result = run({"run", "bad.json", "--until", "1"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(run({"check", "bad.json"}).output, StartsWith(result.error)); // which adds warnings
    EXPECT_THAT(result.error, StartsWith("bad.json:1:"));
}

TEST_F(Run, NamesTheFileOfAnErrorInIt)
{
    folder.write("list.json", "[]");
    folder.write("syntax.json", "{\n\"x\"");
    folder.write("noZip.json", "PK");
    folder.write("empty.json", "{\"nstates\": 0}");
    folder.write("linked.json",
                 R"({"nstates": 0, "states": {}, "start": "x", "transitions": {}, "inputPins": {},
        "inputBuses": {}, "outputPins": {}, "outputBuses": {}, "variables": {}, "parameters": {}})");
    for (const char* device : {"noZip.json", "empty.json", "linked.json"}) {
        const ProcessResult result = run({"run", device, "--until", "1"});
        EXPECT_EQ(result.exitCode, 1) << device;
        EXPECT_THAT(result.error, StartsWith(std::string("halvorin: ") + device + ": "));
    }
    for (const char* device : {"list.json", "syntax.json"}) {
        const ProcessResult result = run({"run", device, "--until", "1"});
        EXPECT_EQ(result.exitCode, 1) << device;
        EXPECT_EQ(result.error, run({"check", device}).output);
    }
    EXPECT_THAT(run({"run", "syntax.json", "--until", "1"}).error, StartsWith("syntax.json:2:4: error: "));
    folder.write("bad.json", R"({"events": [{"time": 1, "pin": "nix", "value": 1}]})");
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "bad.json"}).error,
              "halvorin: bad.json: events[0]: the device has no pin 'nix'\n");
    EXPECT_EQ(run({"run", "missing.json"}).error, "halvorin: the file does not exist: 'missing.json'\n");
    EXPECT_EQ(run({"run", "d.json"}).error,
              "halvorin: d.json: nothing says when the run is to end: give --until, "
              "or \"until\" in the stimulus\n");
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--param", "X=1"}).error,
              "halvorin: d.json: the device has no parameter 'X'\n");
}

TEST_F(Run, GoesOnForLongerThanTheTimeLimitWhenItsEventsDoNot)
{
    // Nothing in this chart runs code: only events tell that it goes on.
    folder.write("idle.json", R"({"states": {"a": {"type": "atomic", "transitions": {
        "t": {"order": 0, "event": "change", "target": "a"}}}}, "start": "a",
        "inputs": {"clk": {"type": "pin"}}, "outputs": {}, "outputDelay": "1n"})");
    folder.write("clock.json", R"({"clocks": [{"pin": "clk", "period": "1u"}], "until": "400m"})");
    const ProcessResult result =
        run({"run", "idle.json", "--stimulus", "clock.json", "--time-limit", "0.01"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(Run, EndsWithAClearErrorForDamagedCompiledDevices)
{
    ASSERT_EQ(run({"compile", "d.json", "d.compiled"}).exitCode, 0);
    const std::string device = folder.read("d.compiled");
    for (std::size_t size = 1; size < device.size(); size += device.size() / 25) {
        folder.write("cut.json", device.substr(0, size));
        std::string flipped = device;
        flipped[size] = static_cast<char>(flipped[size] ^ 1);
        folder.write("flipped.json", flipped);
        EXPECT_EQ(run({"run", "cut.json", "--until", "1"}).exitCode, 1) << size;
        const ProcessResult result = run({"run", "flipped.json", "--until", "1"}, inTemporaryFolder);
        EXPECT_THAT(result.exitCode, testing::AnyOf(0, 1)) << size;
        EXPECT_EQ(result.error.empty(), result.exitCode == 0) << size;
    }
}

TEST_F(Run, EndsWithAClearErrorForCompiledDevicesThatNoCompilerWrites)
{
    struct Hostile
    {
        const char* states;
        const char* transitions;
        const char* terminals; ///< inputs, outputs, variables and parameters
        const char* error;
    };
    constexpr auto oneState = R"({"a": {"type": "atomic", "ntrans": 2147483647}})";
    constexpr auto noTerminals = R"("inputPins": {}, "inputBuses": {}, "outputPins": {}, "outputBuses": {},
                                    "variables": {}, "parameters": {})";
    const Hostile devices[] = {
        {"{}", "{}", noTerminals, "starting state not found"},
        {oneState, R"({"t": {"src": "a", "tgt": "b", "order": 0, "local": false}})", noTerminals,
         "invalid unordered_map<K, T> key"},
        {oneState, R"({"t": {"src": "a", "tgt": "a", "order": 0, "local": false}})", noTerminals,
         "at 0: a chain of transitions does not end: more than 10000 in one event, at transition 't' of "
         "state 'a'"},
        {oneState, "{}",
         R"("inputPins": {"x": {"type": "pin"}}, "inputBuses": {}, "outputBuses": {}, "variables": {},
                            "outputPins": {"x": {"type": "pin", "initial": 1}}, "parameters": {})",
         "the device has two pins or buses 'x'"},
        {oneState, "{}", R"("inputBuses": {"x": {"type": "bus", "width": 65, "dataType": 1, "encoding": 3}},
                            "inputPins": {}, "outputBuses": {}, "variables": {}, "outputPins": {}, "parameters": {})",
         "bus 'x' is 65 wide: a simulation takes buses of 1 to 64 lines"},
        {oneState, "{}", R"("inputPins": {}, "inputBuses": {}, "outputPins": {}, "outputBuses": {},
                            "variables": {}, "parameters": {"P": {"type": 9, "value": "1"}})",
         "invalid parameter type"},
    };
    for (const Hostile& device : devices) {
        std::string text = R"({"nstates": 2147483647, "start": "a", "states": )";
        text.append(device.states).append(R"(, "transitions": )").append(device.transitions);
        text.append(", ").append(device.terminals).append("}");
        folder.write("h.json", text);
        const ProcessResult result =
            run({"run", "h.json", "--until", "1", "--vcd", "w.vcd"}, inTemporaryFolder);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.error, EndsWith(std::string("h.json: ") + device.error + "\n"));
        EXPECT_LT(result.peakMemory, std::size_t{1} << 30);
    }
}

struct Misuse
{
    std::vector<std::string> arguments;
    const char* message;
};

TEST_F(Run, TellsOfWrongUsage)
{
    const Misuse misuses[] = {
        {{}, "DEVICE is missing"},
        {{"d.json", "--param", "P"}, "--param: not of the form NAME=VALUE: 'P'"},
        {{"d.json", "--param", "=1"}, "--param: not of the form NAME=VALUE: '=1'"},
        {{"d.json", "--until", "soon"}, "--until 'soon': invalid format for number conversion"},
        {{"d.json", "--until", "-1"}, "--until '-1': it is negative"},
        {{"d.json", "--until", "1e9"},
         "--until '1e9': it is too long for ticks of 1f (--resolution gives longer ones)"},
        {{"d.json", "--resolution", "3n"},
         "the resolution must be a power of ten from 1f to 1 second, not '3n'"},
        {{"d.json", "--resolution", "x"},
         "the resolution must be a power of ten from 1f to 1 second, not 'x'"},
        {{"d.json", "--time-limit", "0"}, "--time-limit: '0' is no number from 0.001 to 1e+06"},
        {{"d.json", "--time-limit", "nan"}, "--time-limit: 'nan' is no number from 0.001 to 1e+06"},
        {{"d.json", "--time-limit", "1s"}, "--time-limit: '1s' is no number from 0.001 to 1e+06"},
        {{"d.json", "--fail-under", "101"}, "--fail-under: '101' is no number from 0 to 100"},
        {{"d.json", "--fail-under", "nan"}, "--fail-under: 'nan' is no number from 0 to 100"},
        {{"d.json", "--gtkw"}, "--gtkw goes with --vcd FILE"},
        {{"d.json", "--gtkw", "--vcd", "-"}, "--gtkw goes with --vcd FILE"},
        {{"d.json", "--gtkw", "--vcd", "x.gtkw"}, "two files to write are called 'x.gtkw'"},
        {{"d.json", "--vcd", "x", "--coverage", "x"}, "two files to write are called 'x'"},
        {{"d.json", "--lcov", "x", "--record", "x"}, "two files to write are called 'x'"},
        {{"-", "--stimulus", "-"}, "standard input (-) is given more than once"},
        {{"d.json", "--stimulus", "s.json", "--stimulus", "s.json", "--vcd", "w.vcd"},
         "--vcd takes one run: give one --stimulus"},
        {{"d.compiled", "--until", "1", "--lcov", "l.info"},
         "--lcov needs a definition: its lines are what is counted"},
        {{"d.json", "--replay", "r.json"},
         "--replay repeats a run as it was: no DEVICE, --stimulus, --param, --until or --resolution beside "
         "it"},
        {{"--replay", "r.json", "--until", "1"},
         "--replay repeats a run as it was: no DEVICE, --stimulus, --param, --until or --resolution beside "
         "it"},
    };
    run({"compile", "d.json", "d.compiled"});
    for (const auto& [words, message] : misuses) {
        std::vector<std::string> arguments{"run"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << message;
        EXPECT_EQ(result.output, "") << message;
        EXPECT_EQ(result.error, "halvorin: " + std::string(message) + "\n");
    }
    for (const char* unknown : {"--nonsense", "--stimulus"})
        EXPECT_EQ(run({"run", "d.json", unknown}).exitCode, 2) << unknown;
}

TEST_F(Run, ReadsNumbersOfItsOptionsWhateverTheLocale)
{
    writeCommaLocale(folder);
    ProcessOptions comma;
    comma.environment = {{"LOCPATH", folder.path().native()}, {"LC_ALL", commaLocaleName}};
    const ProcessResult result = run({"run", "d.json", "--stimulus", "s.json", "--time-limit", "0.5",
                                      "--fail-under", "74.9", "--until", "12.5n"},
                                     comma);
    EXPECT_THAT(result.error, HasSubstr("the run ended at 12.5n, before 1 of the expectations\n"));
    EXPECT_THAT(result.error, HasSubstr("the coverage is below 74.9 percent\n"));
}

// --- errors in a run

TEST_F(Run, StopsAtARuntimeErrorWithTimeStateAndAction)
{
    folder.write("d.json", deviceWith(R"(isPinHigh(\"nix\");)"));
    const ProcessResult result = run({"run", "d.json", "--until", "1", "--vcd", "w.vcd"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "before\n");
    EXPECT_EQ(result.error, "d.json: at 0: the device has no pin 'nix', in entry action 2 of state 'a'\n");
    EXPECT_TRUE(exists("w.vcd")); // up to the error
}

TEST_F(Run, EndsInOrderAtAnIntegerDivisionByZero)
{
    folder.write("d.json", deviceWith("int z = 0; print(1 / z);"));
    expectStopped({}, "before\n", "d.json: at 0: integer division fault, in entry action 2 of state 'a'\n");
}

TEST_F(Run, EndsInOrderAtAnActionThatDoesNotEnd)
{
    folder.write("d.json", deviceWith("while (true) {}"));
    expectStopped({"--time-limit", "0.2"}, "before\n",
                  "d.json: at 0: the code does not end (--time-limit gives it longer), in entry action 2 of "
                  "state 'a'\n");
}

TEST_F(Run, PrintsNothingTwiceWhenAnActionThatPrintsDoesNotEnd)
{
    folder.write("d.json", deviceWith("int i = 0; while (true) { print(i); i = i + 1; }"));
    const ProcessResult result =
        shell("\"$0\" run d.json --until 1 --time-limit 0.2 | (sleep 0.1; awk 'NR > 1 && $0 != "
              "NR - 2 { print \"line\", NR, $0; exit }')");
    EXPECT_THAT(result.error, HasSubstr("the code does not end"));
    EXPECT_EQ(result.output, "");
}

// --- streams and files that fail

TEST_F(Run, KeepsWhatWasThereWhenAReportCannotBeWritten)
{
    folder.write("w.vcd", "an earlier run");
    for (const char* coverage : {"/nix/c.json", "/dev/full"}) {
        const ProcessResult result =
            run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd", "--coverage", coverage},
                inTemporaryFolder);
        EXPECT_EQ(result.exitCode, 1) << coverage;
        EXPECT_THAT(result.output, StartsWith("up\ndown\n3\n"));
        EXPECT_THAT(result.error, HasSubstr(coverage));
        EXPECT_EQ(folder.read("w.vcd"), "an earlier run") << coverage;
        EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
    }
}

TEST_F(Run, ReportsAFileThatMayNotGrow)
{
    folder.write("w.vcd", "an earlier run");
    ProcessOptions options = inTemporaryFolder;
    options.fileSizeLimit = 100;
    const ProcessResult result = run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd"}, options);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.error, "");
    EXPECT_EQ(folder.read("w.vcd"), "an earlier run");
    EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
}

TEST_F(Run, ReportsAStandardOutputThatTakesNothing)
{
    for (const Stream stream : {Stream::closed, Stream::brokenPipe, Stream::fullDevice}) {
        ProcessOptions options;
        options.output = stream;
        const ProcessResult result =
            run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd"}, options);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.error, HasSubstr("cannot write to standard output: "));
        EXPECT_TRUE(exists("w.vcd"));
    }
}

// --- coverage and recordings

TEST_F(Run, FailsWhenLessWasUsedThanAskedFor)
{
    // 6 of 8: 75 percent
    EXPECT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--fail-under", "75"}).exitCode, 0);
    const ProcessResult result =
        run({"run", "d.json", "--stimulus", "s.json", "--fail-under", "75.1", "--coverage", "c.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "halvorin: the coverage is below 75.1 percent\n");
    EXPECT_THAT(result.output, EndsWith("all 6/8 (75.0 %)\n"));
    EXPECT_TRUE(exists("c.json"));
    EXPECT_EQ(run({"run", "d.json", "--until", "0", "--fail-under", "0"}).exitCode, 0);
}
