#include "reports/valuechangedump.h"

#include "support/concatenated.h"
#include "testrun.h"

namespace {

/// The dump of a run.
std::string dumpOf(const std::string& device, const std::string& stimulus, const std::string& name = "d")
{
    std::ostringstream text;
    ValueChangeDump dump(text, name);
    const TestRun run(device, stimulus, {&dump});
    EXPECT_EQ(run.result().error, "");
    return text.str();
}

std::string partOf(const std::string& text, const std::string& from, const std::string& upTo)
{
    const std::size_t begin = text.find(from);
    const std::size_t end = text.find(upTo, begin);
    return begin == std::string::npos ? "not there" : text.substr(begin, end - begin);
}

/// What stands before the first value.
std::string headOf(const std::string& dump)
{
    return partOf(dump, "$version", "#0\n");
}

/// What stands behind the values of the start.
std::string changesOf(const std::string& dump)
{
    const std::string mark = "$dumpvars\n";
    const std::size_t start = dump.find(mark) + mark.size();
    return dump.substr(dump.find("$end\n", start) + 5);
}

constexpr auto oneState = R"("states": {"a": {"type": "atomic"}}, "start": "a", "outputDelay": "1n", )";

} // namespace

TEST(ValueChangeDump, BeginsWithWhatThereIsAndItsValuesAtTheStart)
{
    const std::string dump =
        dumpOf(std::string(oneState) +
                   R"("inputs": {"b": {"type": "bus", "width": 3, "dataType": "uint64_t"},
                                                     "x": {"type": "pin"}},
                                           "outputs": {"q": {"type": "pin", "initial": "1"},
                                                       "r": {"type": "bus", "width": 4, "initial": -3,
                                                             "dataType": "int64_t", "encoding": "TwosComplement"}})",
               R"("until": "5n")");
    EXPECT_EQ(dump, "$version halvorin $end\n"
                    "$timescale 1 ns $end\n"
                    "$scope module d $end\n"
                    "$var wire 1 ! x $end\n"
                    "$var wire 3 \" b [2:0] $end\n"
                    "$var wire 1 # q $end\n"
                    "$var wire 4 $ r [3:0] $end\n"
                    "$scope module states $end\n"
                    "$var string 1 % chart $end\n"
                    "$upscope $end\n"
                    "$upscope $end\n"
                    "$enddefinitions $end\n"
                    "#0\n"
                    "$dumpvars\n"
                    "0!\n"
                    "b000 \"\n"
                    "1#\n"
                    "b1101 $\n"
                    "sa %\n"
                    "$end\n"
                    "#5\n");
}

TEST(ValueChangeDump, HasEveryKindOfVariable)
{
    const std::string dump = dumpOf(
        R"("states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0, "event": "change",
                    "actions": ["setVariable(\"i\", 0 - 2);", "setVariable(\"d\", 0.5);",
                                "setVariable(\"s\", \"a b\\\\\\t\");", "setVariable(\"f\", true);",
                                "int64_t l = 0; setVariable(\"l\", l - 1);",
                                "uint64_t u = 5; setVariable(\"u\", u);"]}}}},
                  "start": "a", "outputDelay": "1n", "outputs": {}, "inputs": {"x": {"type": "pin"}},
                  "variables": {"i": {"type": "int", "value": 1}, "d": {"type": "double", "value": 1.25},
                                "s": {"type": "string", "value": ""}, "f": {"type": "bool", "value": false},
                                "l": {"type": "int64_t", "value": 2}, "u": {"type": "uint64_t", "value": 3}})",
        R"("events": [{"time": "2n", "pin": "x", "value": 1}])");
    EXPECT_EQ(partOf(dump, "$scope module variables", "$scope module states"),
              "$scope module variables $end\n"
              "$var integer 32 \" i $end\n"
              "$var real 64 # d $end\n"
              "$var string 1 $ s $end\n"
              "$var wire 1 % f $end\n"
              "$var integer 64 & l $end\n"
              "$var integer 64 ' u $end\n"
              "$upscope $end\n");
    const std::string zeros(61, '0');
    EXPECT_EQ(partOf(dump, "#0\n", "#2\n"), "#0\n$dumpvars\n0!\nb" + std::string(31, '0') +
                                                "1 \"\nr1.25 #\ns $\n0%\nb" + zeros + "010 &\nb" + zeros +
                                                "011 '\nsa (\n$end\n");
    EXPECT_EQ(changesOf(dump), "#2\n1!\nb" + std::string(31, '1') +
                                   "0 \"\nr0.5 #\nsa\\x20b\\x5c\\x09 $\n1%\nb" + std::string(64, '1') +
                                   " &\nb" + zeros + "101 '\n");
}

TEST(ValueChangeDump, NestsTheScopesOfStatesAsTheStatesAre)
{
    const std::string dump = dumpOf(
        R"("states": {"p": {"type": "parallel", "substates": {
                         "r1": {"type": "compound", "initial": "u", "substates": {
                             "u": {"type": "compound", "initial": "w", "substates": {"w": {"type": "atomic"}}}}},
                         "r2": {"type": "compound", "initial": "v", "substates": {"v": {"type": "atomic"}}},
                         "r3": {"type": "atomic"}}},
                      "c": {"type": "compound", "initial": "i", "substates": {"i": {"type": "atomic"}}}},
           "start": "p", "outputDelay": "1n", "outputs": {})",
        R"("until": 0)");
    EXPECT_EQ(headOf(dump), "$version halvorin $end\n"
                            "$timescale 1 ns $end\n"
                            "$scope module d $end\n"
                            "$scope module states $end\n"
                            "$var string 1 ! chart $end\n"
                            "$scope module p $end\n"
                            "$var string 1 \" r1 $end\n"
                            "$scope module r1 $end\n"
                            "$var string 1 # u $end\n"
                            "$upscope $end\n"
                            "$var string 1 $ r2 $end\n"
                            "$upscope $end\n"
                            "$var string 1 % c $end\n"
                            "$upscope $end\n"
                            "$upscope $end\n"
                            "$enddefinitions $end\n");
    EXPECT_EQ(partOf(dump, "$dumpvars", "#1"), "$dumpvars\nsp !\nsu \"\nsw #\nsv $\ns- %\n$end\n");
}

TEST(ValueChangeDump, WritesTheValueThatATimeEndsWith)
{
    // A pin that goes up and down at one time has not changed, nor has a variable that is set back.
    const std::string dump = dumpOf(
        R"("states": {"a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "change",
                    "actions": ["setPinHigh(\"q\", 0);", "setPinLow(\"q\", 0);", "setPinHigh(\"q\", etod(\"3n\"));",
                                "setVariable(\"v\", 1);", "setVariable(\"v\", 0);"]}}},
                             "b": {"type": "atomic", "transitions": {"u": {"target": "a", "order": 0}}}},
                  "start": "a", "outputDelay": "1n", "inputs": {"x": {"type": "pin"}},
                  "outputs": {"q": {"type": "pin", "initial": "0"}},
                  "variables": {"v": {"type": "int", "value": 0}})",
        R"("events": [{"time": "2n", "pin": "x", "value": 1}], "until": "9n")");
    EXPECT_EQ(changesOf(dump), "#2\n1!\n#5\n1\"\n#9\n");
}

TEST(ValueChangeDump, EndsWithTheTimeOfTheEndOnce)
{
    const std::string device = std::string(oneState) + R"("inputs": {"x": {"type": "pin"}}, "outputs": {})";
    EXPECT_EQ(
        changesOf(dumpOf(device, R"("events": [{"time": "2n", "pin": "x", "value": 1}], "until": "2n")")),
        "#2\n1!\n");
    EXPECT_EQ(changesOf(dumpOf(device, R"("until": 0)")), "");
}

TEST(ValueChangeDump, EndsAtTheTimeOfAnErrorWithWhatHappenedUntilThen)
{
    std::ostringstream text;
    ValueChangeDump dump(text, "d");
    const TestRun run(R"("states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0,
                            "event": "change", "actions": "isPinHigh(\"nix\");"}}}}, "start": "a",
                         "outputDelay": "1n", "outputs": {}, "inputs": {"x": {"type": "pin"}})",
                      R"("events": [{"time": "7n", "pin": "x", "value": 1}], "until": "9n")", {&dump});
    EXPECT_NE(run.result().error, "");
    EXPECT_THAT(changesOf(text.str()), testing::StartsWith("#7\n1!\n"));
    EXPECT_THAT(text.str(), testing::Not(testing::HasSubstr("#9")));
}

TEST(ValueChangeDump, KeepsItsWordsApartFromNames)
{
    const std::string dump =
        dumpOf(std::string(oneState) +
                   R"("inputs": {"$end": {"type": "pin"}, "a b": {"type": "pin"}, "": {"type": "pin"},
                                 "back\\slash\n": {"type": "pin"}, "über$": {"type": "pin"}}, "outputs": {})",
               R"("until": 0)", "my device");
    EXPECT_EQ(partOf(dump, "$scope module my", "$scope module states"),
              "$scope module my\\x20device $end\n"
              "$var wire 1 ! \\x24end $end\n"
              "$var wire 1 \" a\\x20b $end\n"
              "$var wire 1 # _ $end\n"
              "$var wire 1 $ back\\x5cslash\\x0a $end\n"
              "$var wire 1 % über$ $end\n");
}

TEST(ValueChangeDump, CountsItsCodesThroughAllPrintableCharacters)
{
    std::string pins;
    for (int pin = 0; pin < 100; ++pin) {
        pins.append(pin == 0 ? "\"p" : ", \"p").append(std::to_string(pin));
        pins.append(R"(": {"type": "pin"})");
    }
    const std::string dump =
        dumpOf(std::string(oneState) + "\"inputs\": {" + pins + "}, \"outputs\": {}", R"("until": 0)");
    EXPECT_THAT(
        dump, testing::HasSubstr("$var wire 1 ~ p93 $end\n$var wire 1 !\" p94 $end\n$var wire 1 \"\" p95 "));
}

TEST(ValueChangeDump, TellsTheLengthOfATick)
{
    const JsonObject compiled =
        compiledDeviceOf({concatenated({"{", oneState, R"("outputs": {}})"}), std::nullopt});
    const DeviceOrder order(compiled);
    for (const auto& [resolution, scale] : {std::pair("1f", "1 fs"),
                                            {"10f", "10 fs"},
                                            {"100p", "100 ps"},
                                            {"1n", "1 ns"},
                                            {"10u", "10 us"},
                                            {"100m", "100 ms"},
                                            {"1", "1 s"}}) {
        std::ostringstream text;
        ValueChangeDump dump(text, "d");
        SimulationListener* const listeners[] = {&dump};
        SimulationSetup setup;
        setup.resolution = TimeResolution::fromText(resolution);
        setup.until = 0;
        Simulation(linkDeviceStateChart(compiled, DDCodeBuilderFactory::createCodeBuilder()), order, setup,
                   listeners)
            .run();
        EXPECT_THAT(text.str(), testing::HasSubstr(concatenated({"$timescale ", scale, " $end\n"})));
    }
}
