#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"
#include "peer.h"
#include "sources.h"

#include <benchmark/benchmark.h>

// The grammar for Python over files of its standard library, line by line: with a grammar that was just
// loaded, and with one whose expressions are ready.

using namespace Halvorin::TextMate;

namespace {

std::shared_ptr<const Grammar> pythonGrammar()
{
    return std::make_shared<const Grammar>(QStringLiteral(PYTHON_GRAMMAR));
}

void tokeniseAll(GrammarProcessor& processor)
{
    for (const QStringList& lines : sources().texts) {
        Continuation continuation;
        for (const QString& line : lines) {
            TokenList tokens = processor.tokenise(line + QLatin1Char('\n'), continuation);
            benchmark::DoNotOptimize(tokens.tokens().data());
            continuation = tokens.takeContinuation();
        }
    }
}

void countLines(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * sources().lineCount);
}

void tokeniseWarm(benchmark::State& state)
{
    GrammarProcessor processor(pythonGrammar());
    tokeniseAll(processor);
    for (auto _ : state)
        tokeniseAll(processor);
    countLines(state);
}
BENCHMARK(tokeniseWarm)->Name("tokenise Python/halvorin")->Unit(benchmark::kMillisecond);

void tokeniseCold(benchmark::State& state)
{
    sources();
    for (auto _ : state) {
        GrammarProcessor processor(pythonGrammar());
        tokeniseAll(processor);
    }
    countLines(state);
}
BENCHMARK(tokeniseCold)->Name("load and tokenise Python/halvorin")->Unit(benchmark::kMillisecond);

void runPeer(benchmark::State& state, const char* how)
{
    static Peer peer;
    for (auto _ : state)
        peer.run(how);
    countLines(state);
}
BENCHMARK_CAPTURE(runPeer, warm, "warm")
    ->Name("tokenise Python/vscode-textmate")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runPeer, cold, "cold")
    ->Name("load and tokenise Python/vscode-textmate")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
