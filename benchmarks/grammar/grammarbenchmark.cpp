#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"
#include "peer.h"
#include "sources.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <utility>

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
    state.SetBytesProcessed(state.iterations() * sources().byteCount);
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

/// Lines with their continuations, as an editor keeps them.
class Document
{
public:
    explicit Document(int lineCount) : m_processor(pythonGrammar())
    {
        while (m_lines.size() < lineCount) {
            for (const QStringList& text : sources().texts)
                m_lines += text;
        }
        m_lines = m_lines.mid(0, lineCount);
        m_ends.resize(static_cast<std::size_t>(lineCount));
        tokenise(0);
    }

    void setLine(int number, const QString& text)
    {
        m_lines[number] = text;
        tokenise(number);
    }

    const QString& line(int number) const { return m_lines.at(number); }
    /// How many lines were tokenised the last time.
    int tokenised() const { return m_tokenised; }

private:
    /// From a line on, until one ends as it did before.
    void tokenise(int first)
    {
        m_tokenised = 0;
        for (int number = first; number < m_lines.size(); ++number) {
            Continuation& end = m_ends[static_cast<std::size_t>(number)];
            const Continuation start = number == 0 ? nullptr : m_ends[static_cast<std::size_t>(number) - 1];
            TokenList tokens = m_processor.tokenise(m_lines.at(number) + QLatin1Char('\n'), start);
            benchmark::DoNotOptimize(tokens.tokens().data());
            ++m_tokenised;
            const Continuation before = std::exchange(end, tokens.takeContinuation());
            if (m_isTokenised && sameState(before.get(), end.get()))
                break;
        }
        m_isTokenised = true;
    }

    GrammarProcessor m_processor;
    QStringList m_lines;
    std::vector<Continuation> m_ends;
    int m_tokenised = 0;
    bool m_isTokenised = false;
};

void changeLine(benchmark::State& state)
{
    constexpr int lineCount = 50'000;
    Document document(lineCount);
    const QString before = document.line(lineCount / 2);
    bool isChanged = false;
    for (auto _ : state) {
        isChanged = !isChanged;
        document.setLine(lineCount / 2, isChanged ? before + QStringLiteral(" # changed") : before);
    }
    state.counters["lines"] = document.tokenised();
}
BENCHMARK(changeLine)->Name("change in the middle of 50000 lines of Python/halvorin");

/// What the tokens and continuations of all lines take, for a byte of text.
void keepEverything(benchmark::State& state)
{
    std::size_t textBytes = 0;
    for (const QStringList& lines : sources().texts) {
        for (const QString& line : lines)
            textBytes += static_cast<std::size_t>(line.size()) + 1;
    }
    double kept = 0;
    for (auto _ : state) {
        GrammarProcessor processor(pythonGrammar());
        tokeniseAll(processor); // its own memory is there already
        const auto before = ::mallinfo2().uordblks;
        std::vector<std::pair<std::vector<Token>, Continuation>> all;
        for (const QStringList& lines : sources().texts) {
            Continuation continuation;
            for (const QString& line : lines) {
                TokenList tokens = processor.tokenise(line + QLatin1Char('\n'), continuation);
                continuation = tokens.takeContinuation();
                all.emplace_back(tokens.tokens(), continuation);
            }
        }
        kept = static_cast<double>(::mallinfo2().uordblks - before);
        benchmark::DoNotOptimize(all.data());
    }
    state.counters["perByte"] = kept / static_cast<double>(textBytes);
}
BENCHMARK(keepEverything)->Name("memory of all tokens of Python/halvorin")->Iterations(1);

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
