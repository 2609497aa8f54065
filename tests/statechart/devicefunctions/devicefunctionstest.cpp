#include "statechart/devicefunctions.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "recordingactor.h"
#include "statechart/ddcodebuilderfactory.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

const CodeBuilder& builder()
{
    static const std::unique_ptr<CodeBuilder> shared = DDCodeBuilderFactory::createCodeBuilder();
    return *shared;
}

void run(std::string_view action, RecordingActor& actor)
{
    builder().linkStatements(builder().compileStatements(action).value()).execute(actor);
}

/// What an action calls on the device.
std::vector<std::string> callsOf(std::string_view action)
{
    RecordingActor actor;
    run(action, actor);
    return actor.calls;
}

LanguageError errorOf(std::string_view action)
{
    try {
        builder().compileStatements(action);
    } catch (const CompilationException& failure) {
        return failure.code();
    }
    ADD_FAILURE() << action << " compiles";
    return LanguageError::unknownToken;
}

/// A function that gives a value, called with its arguments: what reaches the device, and what comes back.
struct Reading
{
    const char* expression;
    std::vector<std::string> calls;
    const char* printed;
};

void PrintTo(const Reading& reading, std::ostream* out)
{
    *out << reading.expression;
}

} // namespace

TEST(DeviceFunctions, AreTwentySixInTheOrderOfTheirTable)
{
    std::vector<std::string> names;
    for (const auto& rule : constructDeviceFunctionRules())
        names.push_back(rule->name());
    EXPECT_THAT(names, ElementsAre("setVariable", "getVariable_int", "getVariable_double",
                                   "getVariable_string", "getVariable_bool", "getVariable_int64_t",
                                   "getVariable_uint64_t", "getParameter_int64_t", "getParameter_uint64_t",
                                   "getParameter_double", "readBus_int64_t", "readBus_uint64_t", "writeBus",
                                   "isPinHigh", "isPinLow", "isBusPinHigh", "isBusPinLow", "simulationTime",
                                   "isEdgeEvent", "isPositiveEdge", "isNegativeEdge", "setBusPinHigh",
                                   "setBusPinLow", "setPinHigh", "setPinLow", "etod"));
}

class DeviceReading : public testing::TestWithParam<Reading>
{};

TEST_P(DeviceReading, ReachesTheDeviceAndGivesItsAnswer)
{
    RecordingActor actor;
    actor.variables = {{"i", -7},
                       {"d", 0.5},
                       {"s", std::string("text")},
                       {"b", true},
                       {"l", std::int64_t{-1}},
                       {"u", std::uint64_t{1}}};
    run(std::string("print(") + GetParam().expression + ");", actor);
    std::vector<std::string> expected = GetParam().calls;
    expected.push_back(std::string("print(") + GetParam().printed + ")");
    EXPECT_EQ(actor.calls, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Functions, DeviceReading,
    testing::Values(
        Reading{"getVariable_int(\"i\")", {}, "-7"}, Reading{"getVariable_double(\"d\")", {}, "0.5"},
        Reading{"getVariable_string(\"s\")", {}, "text"}, Reading{"getVariable_bool(\"b\")", {}, "true"},
        Reading{"getVariable_int64_t(\"l\")", {}, "-1"}, Reading{"getVariable_uint64_t(\"u\")", {}, "1"},
        Reading{"getParameter_int64_t(\"p\")", {"getParameter_int64_t(p)"}, "-9000000000"},
        Reading{"getParameter_uint64_t(\"p\")", {"getParameter_uint64_t(p)"}, "18000000000000000000"},
        Reading{"getParameter_double(\"OUTPUT_DELAY\")", {"getParameter_double(OUTPUT_DELAY)"}, "2.5"},
        Reading{"readBus_int64_t(\"q\")", {"readBus_int64_t(q)"}, "-3"},
        Reading{"readBus_uint64_t(\"q\")", {"readBus_uint64_t(q)"}, "3"},
        Reading{"isPinHigh(\"a\")", {"isPinHigh(a)"}, "true"},
        Reading{"isPinLow(\"a\")", {"isPinLow(a)"}, "true"},
        Reading{"isBusPinHigh(\"q\", 3)", {"isBusPinHigh(q, 3)"}, "true"},
        Reading{"isBusPinLow(\"q\", 3)", {"isBusPinLow(q, 3)"}, "true"},
        Reading{"simulationTime()", {"simulationTime()"}, "1.25"},
        Reading{"isEdgeEvent(\"clk\")", {"isEdgeEvent(clk)"}, "true"},
        Reading{"isPositiveEdge(\"clk\")", {"isPositiveEdge(clk)"}, "true"},
        Reading{"isNegativeEdge(\"clk\")", {"isNegativeEdge(clk)"}, "true"},
        Reading{"etod(\"4k7\")", {}, "4000"}, Reading{"etod(\"1MEG\")", {}, "1e+06"}));

TEST(DeviceFunctions, SetAVariableOfEachType)
{
    EXPECT_THAT(callsOf("int64_t l = 5; uint64_t u = 6;"
                        "setVariable(\"a\", 1); setVariable(\"b\", 1.5); setVariable(\"c\", \"x\");"
                        "setVariable(\"d\", true); setVariable(\"e\", l); setVariable(\"f\", u);"),
                ElementsAre("setVariable(a, int, 1)", "setVariable(b, double, 1.5)",
                            "setVariable(c, string, x)", "setVariable(d, bool, true)",
                            "setVariable(e, int64_t, 5)", "setVariable(f, uint64_t, 6)"));
}

TEST(DeviceFunctions, WriteABusAtOnceWithoutTheOutputDelay)
{
    EXPECT_THAT(callsOf("int64_t l = -5; uint64_t u = 6;"
                        "writeBus(\"q\", 1); writeBus(\"q\", l); writeBus(\"q\", u);"),
                ElementsAre("writeBus(q, int64_t, 1, 0)", "writeBus(q, int64_t, -5, 0)",
                            "writeBus(q, uint64_t, 6, 0)"));
}

TEST(DeviceFunctions, WriteABusAfterADelay)
{
    EXPECT_THAT(callsOf("int64_t l = -5; uint64_t u = 6;"
                        "writeBus(\"q\", 1, 0.5); writeBus(\"q\", l, 1); writeBus(\"q\", u, 0.25);"),
                ElementsAre("writeBus(q, int64_t, 1, 0.5)", "writeBus(q, int64_t, -5, 1)",
                            "writeBus(q, uint64_t, 6, 0.25)"));
}

TEST(DeviceFunctions, SetPinsWithTheOutputDelayUnlessGivenOne)
{
    EXPECT_THAT(
        callsOf("setPinHigh(\"q\"); setPinLow(\"q\"); setBusPinHigh(\"b\", 1); setBusPinLow(\"b\", 2);"),
        ElementsAre("getParameter_double(OUTPUT_DELAY)", "setPinHigh(q, 2.5)",
                    "getParameter_double(OUTPUT_DELAY)", "setPinLow(q, 2.5)",
                    "getParameter_double(OUTPUT_DELAY)", "setBusPinHigh(b, 1, 2.5)",
                    "getParameter_double(OUTPUT_DELAY)", "setBusPinLow(b, 2, 2.5)"));
}

TEST(DeviceFunctions, SetPinsWithAGivenDelayWithoutReadingTheOutputDelay)
{
    EXPECT_THAT(callsOf("setPinHigh(\"q\", 0.0); setPinLow(\"q\", 0.5); setBusPinHigh(\"b\", 1, 0.0);"
                        "setBusPinLow(\"b\", 2, 1);"),
                ElementsAre("setPinHigh(q, 0)", "setPinLow(q, 0.5)", "setBusPinHigh(b, 1, 0)",
                            "setBusPinLow(b, 2, 1)"));
}

TEST(DeviceFunctions, LetThroughWhatTheDeviceRaisesForItsOutputDelay)
{
    RecordingActor actor;
    actor.parameters.clear();
    EXPECT_THROW(run("setPinHigh(\"q\");", actor), std::out_of_range);
    EXPECT_THAT(actor.calls, ElementsAre("getParameter_double(OUTPUT_DELAY)"));
}

TEST(DeviceFunctions, LetThroughWhatTheDeviceRaisesForAReadOfAnotherType)
{
    RecordingActor actor;
    actor.variables = {{"i", 1}};
    EXPECT_THROW(run("print(getVariable_double(\"i\"));", actor), std::logic_error);
}

TEST(DeviceFunctions, EvaluateTheirArgumentsFromTheLastToTheFirst)
{
    RecordingActor actor;
    actor.variables = {{"3", 4}};
    run("setBusPinHigh(format(\"{}\", readBus_int64_t(\"name\")),"
        " getVariable_int(format(\"{}\", readBus_uint64_t(\"index\"))), simulationTime());",
        actor);
    EXPECT_THAT(actor.calls, ElementsAre("simulationTime()", "readBus_uint64_t(index)",
                                         "readBus_int64_t(name)", "setBusPinHigh(-3, 4, 1.25)"));
}

TEST(DeviceFunctions, CombineGuardsWithoutStoppingShortAndFromTheRight)
{
    RecordingActor actor;
    actor.answer = false;
    run("bool taken = isPinHigh(\"a\") && isPinLow(\"b\");", actor);
    EXPECT_THAT(actor.calls, ElementsAre("isPinLow(b)", "isPinHigh(a)"));
}

TEST(DeviceFunctions, ReadAnEngineeringNumberOrThrow)
{
    RecordingActor actor;
    EXPECT_THAT(callsOf("print(etod(\"10p\")); print(etod(\"1m\")); print(etod(\"1meg\"));"),
                ElementsAre("print(1e-11)", "print(0.001)", "print(1e+06)"));
    try {
        run("print(etod(\"3x\"));", actor);
        ADD_FAILURE() << "a scale that is none was taken";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "invalid format for number conversion");
    }
}

TEST(DeviceFunctions, RefuseArgumentsThatNoOverloadTakes)
{
    EXPECT_EQ(errorOf("simulationTime(1);"), LanguageError::noOverload);
    EXPECT_EQ(errorOf("setPinHigh(1);"), LanguageError::noOverload);
    EXPECT_EQ(errorOf("int64_t x = 1; setPinHigh(\"q\", x);"), LanguageError::noOverload);
    EXPECT_EQ(errorOf("writeBus(\"q\", 1.5);"), LanguageError::noOverload);
    EXPECT_EQ(errorOf("isBusPinHigh(\"q\", 1.0);"), LanguageError::noOverload);
    EXPECT_EQ(errorOf("setVariable(\"c\", 'a');"), LanguageError::noOverload);
}

TEST(DeviceFunctions, AreUnknownToTheGeneralLanguageByAnyOtherSpelling)
{
    EXPECT_EQ(errorOf("setpinhigh(\"q\");"), LanguageError::unexpectedToken20);
}

TEST(DeviceFunctions, GiveNothingWhereAnOperandIsNeeded)
{
    EXPECT_EQ(errorOf("1 + setPinHigh(\"q\");"), LanguageError::noBinaryOperator);
}
