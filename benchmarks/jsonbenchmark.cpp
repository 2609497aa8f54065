#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>

#include <sstream>

// The engine's JSON beside Qt's, on a document shaped like a compiled device.

namespace {

const std::string& documentText()
{
    static const std::string text = [] {
        JsonObject states;
        for (int index = 0; index < 2000; ++index) {
            JsonObject state{{"type", "atomic"}, {"ntrans", index % 5}, {"delay", index * 0.125}};
            state.insert("onEntry", JsonArray{JsonObject{{"rule", "var"}, {"id", "v_0"}, {"type", "int"}}});
            states.insert("state_" + std::string(1, static_cast<char>('a' + index % 26)) +
                              std::string(static_cast<std::size_t>(index / 26), 'x'),
                          std::move(state));
        }
        return toString(JsonObject{{"states", std::move(states)}});
    }();
    return text;
}

void count(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * documentText().size()));
}

void readEngine(benchmark::State& state)
{
    for (auto _ : state) {
        std::istringstream input(documentText());
        benchmark::DoNotOptimize(readDocument(input));
    }
    count(state);
}
BENCHMARK(readEngine)->Name("JSON read, engine")->Unit(benchmark::kMicrosecond);

void readQt(benchmark::State& state)
{
    const QByteArray text = QByteArray::fromStdString(documentText());
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
    count(state);
}
BENCHMARK(readQt)->Name("JSON read, Qt")->Unit(benchmark::kMicrosecond);

void writeEngine(benchmark::State& state)
{
    std::istringstream input(documentText());
    const JsonDocument document = readDocument(input);
    for (auto _ : state)
        benchmark::DoNotOptimize(toString(document.value()));
    count(state);
}
BENCHMARK(writeEngine)->Name("JSON write, engine")->Unit(benchmark::kMicrosecond);

void writeQt(benchmark::State& state)
{
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(documentText()));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toJson(QJsonDocument::Compact));
    count(state);
}
BENCHMARK(writeQt)->Name("JSON write, Qt")->Unit(benchmark::kMicrosecond);

} // namespace
