#include "reports/tracewriter.h"

#include "testrun.h"

namespace {

std::string traceOf(const std::string& device, const std::string& stimulus)
{
    std::string text;
    TraceWriter trace([&](std::string_view lines) { text += lines; });
    const TestRun run(device, stimulus, {&trace});
    EXPECT_EQ(run.result().error, "");
    return text;
}

} // namespace

TEST(TraceWriter, TellsOfEverythingThatHappensWithItsTime)
{
    EXPECT_EQ(
        traceOf(
            R"json("states": {"a": {"type": "atomic", "transitions": {
                             "t": {"target": "b", "order": 0, "event": "change", "conditions": "isPositiveEdge(\"x\")",
                                   "actions": ["setPinHigh(\"q\");", "writeBus(\"r\", 3);"]
}
}
}
, "b":
{
    "type" : "atomic", "transitions":
    {
        "w":
        {
            "target" : "a", "order" : 0, "event" : "wake", "wakeTime" : "3n"
        }
    }
}
},
                         "start": "a", "outputDelay": "1n",
                         "inputs": {"x": {"type": "pin"}, "n": {"type": "bus", "width": 2, "dataType": "uint64_t"}},
                         "outputs": {"q": {"type": "pin", "initial": "0"},
                                     "r": {"type": "bus", "width": 4, "dataType": "uint64_t", "initial": 0}})json",
            R"("events": [{"time": "10n", "pin": "x", "value": 1}, {"time": "12n", "bus": "n", "value": 2},
                                    {"time": "14n", "pin": "x", "value": 0}])"),
        "0: event: start\n"
        "0: enter state 'a'\n"
        "10n: input pin 'x' = 1\n"
        "10n: event: rising edge of pin 'x'\n"
        "10n: take transition 't' from 'a' to 'b'\n"
        "10n: leave state 'a'\n"
        "10n: output bus 'r' = 3\n"
        "10n: enter state 'b'\n"
        "10n: arm wake 1 of transition 'w' for 13n\n"
        "11n: output pin 'q' = 1\n"
        "12n: input bus 'n' = 2\n"
        "12n: event: change of bus 'n'\n"
        "13n: event: wake 1 of transition 'w'\n"
        "13n: take transition 'w' from 'b' to 'a'\n"
        "13n: leave state 'b'\n"
        "13n: enter state 'a'\n"
        "14n: input pin 'x' = 0\n"
        "14n: event: falling edge of pin 'x'\n");
}

TEST(TraceWriter, TellsOfStatesThatAreDroppedAndOfWakesThatComeTooLate)
{
    const std::string trace = traceOf(
        R"("states": {"c": {"type": "compound", "initial": "i", "substates": {"i": {"type": "atomic"}},
                       "transitions": {"t": {"target": "b", "order": 0, "event": "change"},
                                       "w": {"target": "b", "order": 1, "event": "wake", "wakeTime": "9n"}}},
                       "b": {"type": "atomic"}}, "start": "c", "outputDelay": "1n", "outputs": {},
                   "inputs": {"x": {"type": "pin"}})",
        R"("events": [{"time": "1n", "pin": "x", "value": 1}], "until": "10n")");
    EXPECT_THAT(trace, testing::HasSubstr("1n: leave state 'c'\n"
                                          "1n: enter state 'b'\n"
                                          "1n: drop state 'i', left from around it\n"));
    EXPECT_THAT(trace, testing::EndsWith("9n: event: wake 1, whose state has been left\n"));
}

TEST(TraceWriter, KeepsALineALine)
{
    EXPECT_EQ(traceOf(R"("states": {"a\n\tb": {"type": "atomic"}}, "start": "a\n\tb", "outputDelay": "1n",
                         "outputs": {})",
                      R"("until": 0)"),
              "0: event: start\n0: enter state 'a??b'\n");
}
