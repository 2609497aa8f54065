#include "reports/gtkwavesave.h"

#include "testrun.h"

TEST(GtkwaveSave, ShowsStatesInputsOutputsAndVariablesInOrder)
{
    TestRun run(
        R"("states": {"a": {"type": "compound", "initial": "b", "substates": {"b": {"type": "compound",
                       "initial": "c d", "substates": {"c d": {"type": "atomic"}}}}}},
                   "start": "a", "outputDelay": "1n",
                   "inputs": {"n": {"type": "bus", "width": 8, "dataType": "uint64_t"}, "x": {"type": "pin"}},
                   "outputs": {"two": {"type": "bus", "width": 4, "dataType": "int64_t", "initial": 0,
                                       "encoding": "TwosComplement"},
                               "off": {"type": "bus", "width": 4, "dataType": "int64_t", "initial": 0,
                                       "encoding": "OffsetBinary"},
                               "q": {"type": "pin", "initial": "0"}},
                   "variables": {"i": {"type": "int", "value": 1}, "r": {"type": "double", "value": 1},
                                 "t": {"type": "string", "value": "x"}, "f": {"type": "bool", "value": true},
                                 "l": {"type": "int64_t", "value": 1}, "u": {"type": "uint64_t", "value": 1}})",
        R"("clocks": [{"pin": "x", "period": "1u"}], "until": "1m")", {});
    const std::string text = gtkwaveSaveText("w.vcd", "my device", run.device());
    EXPECT_THAT(text, testing::StartsWith("[dumpfile] \"w.vcd\"\n[timestart] 0\n*-"));
    EXPECT_EQ(text.substr(text.find('@')), "@200\n-States\n@820\n"
                                           "my\\x20device.states.chart\n"
                                           "my\\x20device.states.a\n"
                                           "my\\x20device.states.a.b\n"
                                           "@200\n-Inputs\n"
                                           "@28\nmy\\x20device.x\n"
                                           "@22\nmy\\x20device.n[7:0]\n"
                                           "@200\n-Outputs\n"
                                           "@28\nmy\\x20device.q\n"
                                           "@420\nmy\\x20device.two[3:0]\n"
                                           "@22\nmy\\x20device.off[3:0]\n"
                                           "@200\n-Variables\n"
                                           "@420\nmy\\x20device.variables.i\n"
                                           "@420\nmy\\x20device.variables.r\n"
                                           "@820\nmy\\x20device.variables.t\n"
                                           "@28\nmy\\x20device.variables.f\n"
                                           "@420\nmy\\x20device.variables.l\n"
                                           "@24\nmy\\x20device.variables.u\n");
}

TEST(GtkwaveSave, ShowsTheRunAsAWhole)
{
    const std::string device = R"("states": {"a": {"type": "atomic"}}, "start": "a", "outputDelay": "1n",
                                  "outputs": {}, "inputs": {"x": {"type": "pin"}})";
    const auto zoomOf = [&](const std::string& stimulus) {
        TestRun run(device, stimulus, {});
        const std::string text = gtkwaveSaveText("w.vcd", "d", run.device());
        return text.substr(text.find('*'), text.find(' ') == std::string::npos ? 0 : 6);
    };
    EXPECT_EQ(zoomOf(R"("until": 0)"), "*-0.0 ");
    // 1024 ticks at 2^9 each for 200 pixels
    EXPECT_EQ(zoomOf(R"("events": [{"time": "1024n", "pin": "x", "value": 1}])"), "*-9.0 ");
}

TEST(GtkwaveSave, LeavesOutVariablesOfADeviceThatHasNone)
{
    TestRun run(R"("states": {"a": {"type": "atomic"}}, "start": "a", "outputDelay": "1n", "outputs": {})",
                R"("until": 0)", {});
    EXPECT_THAT(gtkwaveSaveText("w.vcd", "d", run.device()), testing::EndsWith("-Inputs\n@200\n-Outputs\n"));
}
