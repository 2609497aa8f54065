#include "simulator/stimulus.h"

#include "simulator/simulationtime.h"

namespace {

struct Refusal
{
    const char* stimulus;
    const char* message;
};

std::string refusalOf(const char* text)
{
    try {
        readStimulus(text, {});
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(Stimulus, IsReadWithAllItsParts)
{
    const Stimulus stimulus = readStimulus(
        R"({"clocks": [{"pin": "c", "period": "2n", "start": "1n", "duty": 0.25}],
            "events": [{"time": "10n", "pin": "p", "value": 1}, {"time": 1.5, "bus": "b", "value": "0xff"}],
            "expect": [{"time": 2, "variable": "v", "value": "text"}],
            "parameters": {"A": "1k", "B": 7, "C": 0.5},
            "until": "3"})",
        {});
    ASSERT_EQ(stimulus.clocks.size(), 1u);
    EXPECT_EQ(stimulus.clocks[0].pin, "c");
    EXPECT_EQ(stimulus.clocks[0].start, 1'000'000);
    EXPECT_EQ(stimulus.clocks[0].period, 2'000'000);
    EXPECT_EQ(stimulus.clocks[0].high, 500'000);
    ASSERT_EQ(stimulus.events.size(), 2u);
    EXPECT_EQ(stimulus.events[0].time, 10'000'000);
    EXPECT_EQ(stimulus.events[1].kind, TargetKind::bus);
    EXPECT_EQ(stimulus.events[1].time, 1'500'000'000'000'000);
    ASSERT_EQ(stimulus.expectations.size(), 1u);
    EXPECT_EQ(stimulus.expectations[0].place, "expect[0]");
    EXPECT_EQ(stimulus.expectations[0].kind, TargetKind::variable);
    EXPECT_EQ(stimulus.parameters, (ParameterOverrides{{"A", "1k"}, {"B", "7"}, {"C", "0.5"}}));
    EXPECT_EQ(stimulus.until, 3'000'000'000'000'000);
    EXPECT_EQ(stimulus.lastTime(), 2'000'000'000'000'000);
}

TEST(Stimulus, MayBeEmpty)
{
    const Stimulus stimulus = readStimulus("{}", {});
    EXPECT_EQ(stimulus.until, std::nullopt);
    EXPECT_EQ(stimulus.lastTime(), std::nullopt);
}

TEST(Stimulus, IsRefusedWithThePlaceOfWhatIsWrong)
{
    const Refusal refusals[] = {
        {"", "invalid JSON 'expected value' at line 1 character 1"},
        {"[]", "not an object"},
        {R"({"event": []})", "unknown key \"event\""},
        {R"({"events": {}})", "\"events\" is no list"},
        {R"({"events": [1]})", "events[0]: not an object"},
        {R"({"events": [{"pin": "p", "value": 1}]})", "events[0]: \"time\" is missing"},
        {R"({"events": [{"time": 1, "pin": "p"}]})", "events[0]: \"value\" is missing"},
        {R"({"events": [{"time": 1, "value": 1}]})",
         "events[0]: exactly one of \"pin\" and \"bus\" must be there"},
        {R"({"events": [{"time": 1, "pin": "p", "bus": "b", "value": 1}]})",
         "events[0]: exactly one of \"pin\" and \"bus\" must be there"},
        {R"({"events": [{"time": 1, "variable": "v", "value": 1}]})", "events[0]: unknown key \"variable\""},
        {R"({"expect": [{"time": 1, "value": 1}]})",
         "expect[0]: exactly one of \"pin\", \"bus\" and \"variable\" must be there"},
        {R"({"events": [{"time": 1, "pin": 5, "value": 1}]})", "events[0]: \"pin\" is no text"},
        {R"({"events": [{"time": true, "pin": "p", "value": 1}]})",
         "events[0]: \"time\" is neither a number nor a text of one"},
        {R"({"events": [{"time": "x", "pin": "p", "value": 1}]})",
         "events[0]: \"time\": invalid format for number conversion"},
        {R"({"events": [{"time": -1, "pin": "p", "value": 1}]})", "events[0]: \"time\" is negative"},
        {R"({"until": "1e5"})", "\"until\" is too long for ticks of 1f (--resolution gives longer ones)"},
        {R"({"clocks": [{"pin": "c"}]})", "clocks[0]: \"period\" is missing"},
        {R"({"clocks": [{"pin": "c", "period": 0}]})", "clocks[0]: \"period\" is too short for ticks of 1f"},
        {R"({"clocks": [{"pin": "c", "period": 1, "duty": 0.0}]})",
         "clocks[0]: \"duty\" is not between 0 and 1"},
        {R"({"clocks": [{"pin": "c", "period": 1, "duty": 1}]})",
         "clocks[0]: \"duty\" is not between 0 and 1"},
        {R"({"clocks": [{"pin": "c", "period": 1, "phase": 1}]})", "clocks[0]: unknown key \"phase\""},
        {R"({"parameters": 1})", "\"parameters\" is not an object"},
        {R"({"parameters": {"P": true}})", "parameters: \"P\" is neither a number nor a text of one"},
    };
    for (const Refusal& refusal : refusals)
        EXPECT_EQ(refusalOf(refusal.stimulus), refusal.message) << refusal.stimulus;
}

TEST(Stimulus, WithAnExponentThatWouldBeLostIsRefused)
{
    EXPECT_EQ(refusalOf(R"({"events": [{"time": 1.0e-6, "pin": "1e5", "value": 1}], "until": "1e-3"})"), "");
    EXPECT_EQ(refusalOf("{\n\"until\": 1e-6}"),
              "line 2: a number with an exponent needs a decimal point, or to be a text: 1e-6");
    EXPECT_EQ(refusalOf(R"({"parameters": {"\"a\\": -2E3}})"),
              "line 1: a number with an exponent needs a decimal point, or to be a text: -2E3");
}
