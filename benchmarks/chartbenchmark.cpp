#include "charttext.h"
#include "statechart/check/definitioncheck.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"

#include <benchmark/benchmark.h>
#include <sstream>

// Whole charts: compiling takes time in proportion to the chart, and a check about as much as compiling.

namespace {

JsonObject definitionOf(const std::string& text)
{
    std::istringstream input(text);
    return asObject(readDocument(input));
}

JsonObject compiled(const JsonObject& definition)
{
    return compileDeviceStateChart(definition, DDCodeBuilderFactory::createCodeBuilder());
}

void compileChart(benchmark::State& state, std::size_t transitions)
{
    const JsonObject definition = definitionOf(chartOfTransitions(transitions));
    for (auto _ : state)
        benchmark::DoNotOptimize(compiled(definition));
}
BENCHMARK_CAPTURE(compileChart, whole, 10000)
    ->Name("compile chart of 10000 transitions/halvorin")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compileChart, half, 5000)
    ->Name("compile chart of 10000 transitions/half")
    ->Unit(benchmark::kMillisecond);

const std::string& oneMegabyte()
{
    static const std::string text = chartOfSize(1'000'000);
    return text;
}

void check(benchmark::State& state)
{
    for (auto _ : state) {
        const std::vector<Finding> findings = checkDefinition(oneMegabyte());
        if (!findings.empty())
            state.SkipWithError(findings.front().text.c_str());
    }
}
BENCHMARK(check)->Name("check definition of 1 MB/halvorin");

void readAndCompile(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(compiled(definitionOf(oneMegabyte())));
}
BENCHMARK(readAndCompile)->Name("check definition of 1 MB/compile alone");

} // namespace
