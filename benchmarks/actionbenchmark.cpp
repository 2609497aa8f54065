#include "actionlanguage/runtime/executioninterface.h"
#include "actionlanguage/tokens/tokeniser.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <benchmark/benchmark.h>
#include <lua.hpp>
#include <memory>
#include <sstream>

// The action language: what a compile, a link and a run of linked code take. A compile stands beside that of
// another embedded language, a run beside the same arithmetic in C++, which is the limit.

namespace {

class Silent : public AbstractExecutionInterface
{
public:
    void print(const std::string&) override {}
};

const CodeBuilder& builder()
{
    static const std::unique_ptr<CodeBuilder> shared = DDCodeBuilderFactory::createCodeBuilder();
    return *shared;
}

constexpr std::string_view typicalAction =
    "int n = 0; if (isPositiveEdge(\"clk\") && isPinLow(\"rst\")) { n = getVariable_int(\"count\") + 1;"
    " setVariable(\"count\", n % 16); writeBus(\"q\", n); } else if (isPinHigh(\"rst\"))"
    " { setVariable(\"count\", 0); writeBus(\"q\", 0, 0.0); }";

void scanBytes(benchmark::State& state)
{
    std::string text(typicalAction);
    for (auto _ : state) {
        char* start = text.data();
        benchmark::DoNotOptimize(start);
        benchmark::ClobberMemory();
        int spaces = 0;
        for (const char byte : text)
            spaces += byte == ' ' ? 1 : 0;
        benchmark::DoNotOptimize(spaces);
    }
}
BENCHMARK(scanBytes)->Name("tokenise typical action/limit");

void tokeniseAction(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<Diagnostic> findings;
        benchmark::DoNotOptimize(tokenise(typicalAction, findings));
    }
}
BENCHMARK(tokeniseAction)->Name("tokenise typical action/halvorin");

void compileAction(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(builder().compileStatements(typicalAction));
}
BENCHMARK(compileAction)->Name("compile typical action/halvorin");

/// The same action for another embedded language, to its bytecode.
void loadLua(benchmark::State& state)
{
    constexpr std::string_view action =
        "local n = 0; if isPositiveEdge(\"clk\") and isPinLow(\"rst\") then n = getVariable(\"count\") + 1;"
        " setVariable(\"count\", n % 16); writeBus(\"q\", n) elseif isPinHigh(\"rst\") then"
        " setVariable(\"count\", 0); writeBus(\"q\", 0, 0.0) end";
    const std::unique_ptr<lua_State, decltype(&lua_close)> lua(luaL_newstate(), lua_close);
    for (auto _ : state) {
        if (luaL_loadbuffer(lua.get(), action.data(), action.size(), "action") != LUA_OK)
            state.SkipWithError(lua_tostring(lua.get(), -1));
        lua_settop(lua.get(), 0);
    }
}
BENCHMARK(loadLua)->Name("compile typical action/lua");

void linkAction(benchmark::State& state)
{
    const JsonValue compiled = builder().compileStatements(typicalAction).value();
    for (auto _ : state)
        benchmark::DoNotOptimize(builder().linkStatements(compiled));
}
BENCHMARK(linkAction)->Name("link typical action/halvorin");

/// What has to be done before a link: to read the compiled form from its text.
void readCompiledAction(benchmark::State& state)
{
    const std::string text = toString(builder().compileStatements(typicalAction).value());
    for (auto _ : state) {
        std::istringstream stream(text);
        benchmark::DoNotOptimize(readDocument(stream));
    }
}
BENCHMARK(readCompiledAction)->Name("link typical action/reading it");

constexpr int rounds = 10000;

void runLinked(benchmark::State& state)
{
    const LinkedStatements linked = builder().linkStatements(
        builder()
            .compileStatements("int s = 0; for (int i = 0; i < 10000; ++i) { s = s + i * 3 - (i & 7); }")
            .value());
    Silent silent;
    for (auto _ : state)
        linked.execute(silent);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * rounds);
}
BENCHMARK(runLinked)->Name("loop/halvorin")->Unit(benchmark::kMicrosecond);

void runNative(benchmark::State& state)
{
    for (auto _ : state) {
        int sum = 0;
        for (int index = 0; index < rounds; ++index) {
            sum = sum + index * 3 - (index & 7);
            benchmark::DoNotOptimize(sum);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * rounds);
}
BENCHMARK(runNative)->Name("loop/native")->Unit(benchmark::kMicrosecond);

} // namespace
