#include "statechart/statechartcompiler.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/actionfindings.h"
#include "statechart/definitions.h"

#include <ostream>
#include <vector>

namespace {

JsonValue compiled(std::string_view definition)
{
    const JsonValue value = jsonOf(definition);
    return recorded("Chart", definition,
                    [&] { return StateChartCompiler(deviceCodeBuilder()).compile(value.asObject()); });
}

struct ChartCase
{
    const char* name;
    std::string definition;
    std::string outcome; // the compiled chart, or the words of the failure
};

void PrintTo(const ChartCase& row, std::ostream* output)
{
    *output << row.name;
}

class CompiledCharts : public testing::TestWithParam<ChartCase>
{};

TEST_P(CompiledCharts, HaveTheFormOf)
{
    EXPECT_EQ(toString(compiled(GetParam().definition)), toString(jsonOf(GetParam().outcome)));
}

const std::vector<ChartCase> charts{
    {"aChartWithoutNestedStates", R"({"states": {"a": {"type": "atomic"}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 0})"},
    {"aCompoundState",
     R"({"states": {"a": {"type": "compound", "initial": "b",
         "substates": {"b": {"type": "atomic"}, "c": {"type": "atomic"}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "compound",
         "substates": {"b": {"type": "atomic", "ntrans": 0}, "c": {"type": "atomic", "ntrans": 0}},
         "initial": "b", "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 2})"},
    {"aParallelStateWhoseInitialIsDropped",
     R"({"states": {"a": {"type": "parallel", "initial": "nobody",
         "substates": {"b": {"type": "atomic"}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "parallel", "substates": {"b": {"type": "atomic", "ntrans": 0}},
         "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 1})"},
    {"aStateOfAnUnknownTypeAsAnAtomicOne",
     R"({"states": {"a": {"type": "history", "substates": 5, "initial": 5}}, "start": "a"})",
     R"({"states": {"a": {"type": "history", "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 0})"},
    {"aParallelStateWithoutChildren",
     R"({"states": {"a": {"type": "parallel", "substates": {}}}, "start": "a"})",
     R"({"states": {"a": {"type": "parallel", "substates": {}, "ntrans": 0}}, "start": "a",
         "transitions": {}, "nstates": 0})"},
    {"aNestedStateThatBearsTheNameOfATopLevelOne",
     R"({"states": {"a": {"type": "parallel", "substates": {"a": {"type": "atomic"}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "parallel", "substates": {"a": {"type": "atomic", "ntrans": 0}},
         "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 1})"},
    {"transitionsInOneFlatTable",
     R"({"states": {"a": {"type": "compound", "initial": "b",
         "transitions": {"t": {"target": "a", "order": 1, "event": "change"}},
         "substates": {"b": {"type": "atomic",
             "transitions": {"u": {"target": "a", "order": 0}, "v": {"target": "b", "order": 2}}}}}},
         "start": "a"})",
     R"({"states": {"a": {"type": "compound", "substates": {"b": {"type": "atomic", "ntrans": 2}},
         "initial": "b", "ntrans": 1}}, "start": "a",
         "transitions": {"u": {"src": "b", "tgt": "a", "order": 0, "local": false},
             "v": {"src": "b", "tgt": "b", "order": 2, "local": false},
             "t": {"src": "a", "tgt": "a", "order": 1, "event": "change", "local": false}}, "nstates": 1})"},
    {"aLocalTransitionAsOneThatIsNot",
     R"({"states": {"a": {"type": "atomic",
         "transitions": {"t": {"target": "a", "order": 0, "local": true}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 1}}, "start": "a",
         "transitions": {"t": {"src": "a", "tgt": "a", "order": 0, "local": false}}, "nstates": 0})"},
    {"aTransitionToAStateThatDoesNotExist",
     R"({"states": {"a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 1}}, "start": "a",
         "transitions": {"t": {"src": "a", "tgt": "b", "order": 0, "local": false}}, "nstates": 0})"},
    {"aTargetOrderAndEventAsTheyStand",
     R"({"states": {"a": {"type": "atomic",
         "transitions": {"t": {"target": null, "order": "x", "event": [1]}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 1}}, "start": "a",
         "transitions": {"t": {"src": "a", "tgt": null, "order": "x", "event": [1], "local": false}},
         "nstates": 0})"},
    {"entryAndExitActions",
     R"({"states": {"a": {"type": "atomic", "onEntry": ";", "onExit": [";", "int x = 1; x;"]}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 0,
         "onEntry": [{"statements": [], "variables": {}}],
         "onExit": [{"statements": [], "variables": {}},
             {"statements": [{"rule": "expr", "type": "int", "expr": {"rule": "assign", "op": "=",
                 "ltype": "int", "rtype": "int", "lhs": {"type": "int", "id": "v_0"}, "rhs": 1}},
                 {"rule": "expr", "type": "int", "expr": {"rule": "var", "id": "v_0", "type": "int"}}],
              "variables": {"v_0": "int"}}]}},
         "start": "a", "transitions": {}, "nstates": 0})"},
    {"actionsAndConditions",
     R"({"states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0,
         "actions": ["print(\"x\");"], "conditions": "1"}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 1}}, "start": "a",
         "transitions": {"t": {"src": "a", "tgt": "a", "order": 0, "local": false,
             "actions": [{"statements": [{"rule": "expr", "type": "void", "expr": {"rule": "call",
                 "func": "print", "argTypes": ["string"], "args": ["x"]}}], "variables": {}}],
             "conditions": [{"rule": "cast", "from": "int", "to": "bool", "expr": 1}]}}, "nstates": 0})"},
    {"emptyListsOfTexts",
     R"({"states": {"a": {"type": "atomic", "onEntry": [], "transitions": {"t": {"target": "a", "order": 0,
         "actions": [], "conditions": []}}}}, "start": "a"})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 1, "onEntry": []}}, "start": "a",
         "transitions": {"t": {"src": "a", "tgt": "a", "order": 0, "local": false, "actions": [],
             "conditions": []}}, "nstates": 0})"},
    {"noMoreThanTheChartOfADevice",
     R"({"states": {"a": {"type": "atomic"}}, "start": "a", "$schema": 1, "inputs": 2, "outputs": 3})",
     R"({"states": {"a": {"type": "atomic", "ntrans": 0}}, "start": "a", "transitions": {}, "nstates": 0})"},
};
INSTANTIATE_TEST_SUITE_P(Rows, CompiledCharts, testing::ValuesIn(charts));

class RefusedCharts : public testing::TestWithParam<ChartCase>
{};

TEST_P(RefusedCharts, AreRefusedFor)
{
    EXPECT_EQ(failureOf([] { compiled(GetParam().definition); }), GetParam().outcome);
}

std::string chartWithState(std::string_view members)
{
    return std::string(R"({"start": "a", "states": {"a": {"type": "atomic", )").append(members).append("}}}");
}

std::string chartWithTransition(std::string_view members)
{
    return chartWithState(
        std::string(R"("transitions": {"t": {"target": "a", "order": 0, )").append(members).append("}}"));
}

const std::vector<ChartCase> refusedCharts{
    {"missingStates", R"({"start": "a"})", "invalid key"},
    {"statesThatAreNoObject", R"({"start": "a", "states": []})", "invalid cast"},
    {"aStateWhoseTypeIsNoString", R"({"start": "a", "states": {"a": {"type": 1}}})", "invalid cast"},
    {"aNestedStateWhoseTypeIsNoString",
     R"({"start": "a", "states": {"a": {"type": "parallel", "substates": {"b": {"type": null}}}}})",
     "invalid cast"},
    {"aStateThatIsNoObject", R"({"start": "a", "states": {"a": 1}})", "invalid cast"},
    {"aStateWithoutType", R"({"start": "a", "states": {"a": {}}})", "invalid key"},
    {"missingStart", R"({"states": {"a": {"type": "atomic"}}})", "invalid key"},
    {"aStartThatIsNoString", R"({"states": {"a": {"type": "atomic"}}, "start": 1})", "invalid cast"},
    {"aStartThatNamesNothing", R"({"states": {"a": {"type": "atomic"}}, "start": "b"})",
     "start identifier does not reference top level state"},
    {"aStartThatNamesANestedState",
     R"({"states": {"a": {"type": "parallel", "substates": {"b": {"type": "atomic"}}}}, "start": "b"})",
     "start identifier does not reference top level state"},
    {"missingSubstates", R"({"start": "a", "states": {"a": {"type": "parallel"}}})", "invalid key"},
    {"substatesThatAreNoObject", R"({"start": "a", "states": {"a": {"type": "parallel", "substates": []}}})",
     "invalid cast"},
    {"aDuplicateNestedState",
     R"({"start": "a", "states": {"a": {"type": "parallel", "substates": {"x": {"type": "atomic"}}},
         "b": {"type": "parallel", "substates": {"c": {"type": "parallel",
             "substates": {"x": {"type": "atomic"}}}}}}})",
     R"(error: duplicate state identifier: x at 'states["b"].substates["c"].substates["x"]')"},
    {"aStateThatHoldsAnotherOfItsName",
     R"({"start": "a", "states": {"a": {"type": "parallel", "substates": {"x": {"type": "parallel",
         "substates": {"x": {"type": "atomic"}}}}}}})",
     R"(error: duplicate state identifier: x at 'states["a"].substates["x"].substates["x"]')"},
    {"missingInitial", R"({"start": "a", "states": {"a": {"type": "compound", "substates": {}}}})",
     "invalid key"},
    {"anInitialThatIsNoString",
     R"({"start": "a", "states": {"a": {"type": "compound", "substates": {}, "initial": 1}}})",
     "invalid cast"},
    {"anInitialThatIsNoChild",
     R"({"start": "a", "states": {"a": {"type": "compound", "substates": {}, "initial": "a"}}})",
     R"(error: cannot find initial state: a at 'states["a"].initial')"},
    {"aNestedInitialThatIsNoChild",
     R"({"start": "a", "states": {"a": {"type": "parallel", "substates": {"b": {"type": "compound",
         "substates": {"c": {"type": "atomic"}}, "initial": "d"}}}}})",
     R"(error: cannot find initial state: d at 'states["a"].substates["b"].initial')"},
    {"transitionsThatAreNoObject", chartWithState(R"("transitions": [])"), "invalid cast"},
    {"aTransitionThatIsNoObject", chartWithState(R"("transitions": {"t": 1})"), "invalid cast"},
    {"aDuplicateTransition",
     R"({"start": "a", "states": {"a": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0}}},
         "b": {"type": "atomic", "transitions": {"t": {"target": "a", "order": 0}}}}})",
     R"(error: duplicate transition identifier: t at 'states["b"].transitions["t"]')"},
    {"aTransitionWithoutTarget", chartWithState(R"("transitions": {"t": {"order": 0}})"), "invalid key"},
    {"aTransitionWithoutOrder", chartWithState(R"("transitions": {"t": {"target": "a"}})"), "invalid key"},
    {"entryOfAWrongForm", chartWithState(R"("onEntry": 1)"),
     R"(error: invalid format for onEntry definition at 'states["a"].onEntry')"},
    {"exitOfAWrongForm", chartWithState(R"("onExit": {})"),
     R"(error: invalid format for onExit definition at 'states["a"].onExit')"},
    {"actionsOfAWrongForm", chartWithTransition(R"("actions": null)"),
     R"(error: invalid format for 'actions' definition at 'states["a"].transitions["t"].actions')"},
    {"conditionsOfAWrongForm", chartWithTransition(R"("conditions": true)"),
     R"(error: invalid format for 'conditions' definition at 'states["a"].transitions["t"].conditions')"},
    {"anElementThatIsNoString", chartWithState(R"("onEntry": ["", 1])"),
     R"(error: invalid cast at 'states["a"].onEntry.[1]')"},
    {"aFailingThirdElement", chartWithState(R"("onEntry": ["", "", "x = ;", ""])"),
     R"(error: compilation error at 'states["a"].onEntry.[2]')"},
    {"anErrorInOneText", chartWithState(R"("onExit": "1 +;")"),
     R"(error: compilation error at 'states["a"].onExit')"},
    {"anErrorInACondition", chartWithTransition(R"("conditions": ["1", "\"a\""])"),
     R"(error: compilation error at 'states["a"].transitions["t"].conditions.[1]')"},
    {"anErrorDeepInAChart",
     R"({"start": "a", "states": {"a": {"type": "parallel", "substates": {"b": {"type": "atomic",
         "onEntry": ["", "", "x"]}}}}})",
     R"(error: compilation error at 'states["a"].substates["b"].onEntry.[2]')"},
    {"aFindingInActions", chartWithState(R"("onEntry": "print(\"a\n\");")"),
     R"(error: action compilation failed: newline in constant at 'states["a"].onEntry')"},
    {"aFindingInAListOfActions", chartWithTransition(R"("actions": ["1; /*"])"),
     R"(error: action compilation failed: unexpected end of file found in comment at )"
     R"('states["a"].transitions["t"].actions.[0]')"},
    {"aFindingInAConditionWithItsPosition", chartWithTransition(R"("conditions": "1 == /*")"),
     R"(error: condition compilation failed: 'unexpected end of file found in comment' at position '7' at )"
     R"('states["a"].transitions["t"].conditions')"},
    {"aByteOfNoToken", chartWithState(R"("onEntry": "x $ y")"),
     R"(error: bad allocation at 'states["a"].onEntry')"},
    {"aLiteralOutOfRange", chartWithState(R"("onEntry": "int x = 99999999999;")"),
     R"(error: compiler failed to convert string to int at 'states["a"].onEntry')"},
};
INSTANTIATE_TEST_SUITE_P(Rows, RefusedCharts, testing::ValuesIn(refusedCharts));

TEST(StateChartCompilerException, FormsItsTextOfMessageAndPath)
{
    const StateChartCompilerException inner("onEntry", "it is wrong");
    EXPECT_STREQ(inner.what(), "error: it is wrong at 'onEntry'");
    const StateChartCompilerException outer("states[\"a\"]", inner);
    EXPECT_STREQ(outer.what(), "error: it is wrong at 'states[\"a\"].onEntry'");
    EXPECT_EQ(outer.path(), "states[\"a\"].onEntry");
    EXPECT_EQ(outer.message(), "it is wrong");
    EXPECT_FALSE(outer.cause());
}

TEST(StateChartCompilerException, KeepsTheLanguagesErrorUnderIt)
{
    try {
        compiled(chartWithState(R"("onEntry": ["", "a;"])"));
        FAIL() << "it compiled";
    } catch (const StateChartCompilerException& failure) {
        ASSERT_TRUE(failure.cause());
        EXPECT_THROW(std::rethrow_exception(failure.cause()), CompilationException);
    }
}

TEST(StateChartCompilerException, KeepsTheTokenisersFindingsUnderIt)
{
    try {
        compiled(chartWithState(R"("onEntry": "/*")"));
        FAIL() << "it compiled";
    } catch (const StateChartCompilerException& failure) {
        ASSERT_TRUE(failure.cause());
        try {
            std::rethrow_exception(failure.cause());
        } catch (const ActionFindingsException& findings) {
            ASSERT_EQ(findings.findings().size(), 1u);
            EXPECT_EQ(findings.findings()[0].code,
                      static_cast<std::uint32_t>(LanguageError::unterminatedComment));
        }
    }
}

std::string nestedStates(int levels)
{
    std::string text = R"({"start": "a", "states": {"a": )";
    for (int level = 1; level < levels; ++level)
        text += R"({"type": "parallel", "substates": {"s)" + std::to_string(level) + "\": ";
    text += R"({"type": "atomic"})";
    for (int level = 1; level < levels; ++level)
        text += "}}";
    return text + "}}";
}

TEST(StateChartCompiler, TakesStatesUpToItsDepthLimit)
{
    EXPECT_EQ(compiled(nestedStates(StateChartCompiler::maximumStateDepth)).member("nstates").asInt(),
              StateChartCompiler::maximumStateDepth - 1);
}

TEST(StateChartCompiler, RefusesStatesThatNestDeeper)
{
    try {
        compiled(nestedStates(StateChartCompiler::maximumStateDepth + 1));
        FAIL() << "it compiled";
    } catch (const StateChartCompilerException& failure) {
        EXPECT_EQ(failure.message(), "states are nested too deep");
        EXPECT_THAT(failure.path(), testing::StartsWith("states[\"a\"].substates[\"s1\"]."));
        EXPECT_THAT(failure.path(), testing::EndsWith(".substates[\"s500\"]"));
    }
}

TEST(StateChartCompiler, AsksOverridesForEveryTransition)
{
    class Recorder : public StateChartCompiler
    {
    public:
        using StateChartCompiler::StateChartCompiler;

        JsonObject compileTransition(const JsonObject&, const std::string& source) override
        {
            sources.push_back(source);
            return {};
        }

        std::vector<std::string> sources;
    };
    Recorder recorder(deviceCodeBuilder());
    recorder.compile(jsonOf(R"({"start": "a", "states": {"a": {"type": "parallel",
        "transitions": {"t": {}}, "substates": {"b": {"type": "x", "transitions": {"u": {}}}}}}})")
                         .asObject());
    EXPECT_EQ(recorder.sources, (std::vector<std::string>{"b", "a"}));
}

TEST(StateChartCompiler, ClearsItsTransitionsAndKeepsItsStatesBetweenCompiles)
{
    const JsonValue once = jsonOf(chartWithTransition(R"("event": "init")"));
    StateChartCompiler compiler(deviceCodeBuilder());
    EXPECT_EQ(compiler.compile(once.asObject()), compiler.compile(once.asObject()));

    const JsonValue nested = jsonOf(nestedStates(2));
    compiler.compile(nested.asObject());
    EXPECT_EQ(failureOf([&] { compiler.compile(nested.asObject()); }),
              R"(error: duplicate state identifier: s1 at 'states["a"].substates["s1"]')");
}

} // namespace
