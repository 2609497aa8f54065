#include "conversion/pythonlspconversionlibrary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>

// Docstrings of Python's standard library and of numpy to HTML: by us, and by docutils in a process of its
// own that tells the time it took, start-up and transfer apart.

namespace {

using Halvorin::Text::PythonLSPConversionLibrary;
using Docstrings = std::vector<QString>;

const Docstrings& corpus()
{
    static const Docstrings docstrings = [] {
        QProcess script;
        script.start(QStringLiteral(DOCSTRINGS_SCRIPT), QStringList());
        script.waitForFinished(-1);
        Docstrings read;
        for (const QByteArray& line : script.readAllStandardOutput().split('\n'))
            if (!line.isEmpty())
                read.push_back(QJsonDocument::fromJson('[' + line + ']').array().at(0).toString());
        return read;
    }();
    return docstrings;
}

/// Every sixtieth: docutils takes long.
const Docstrings& sample()
{
    static const Docstrings docstrings = [] {
        Docstrings taken;
        for (std::size_t index = 0; index < corpus().size(); index += 60)
            taken.push_back(corpus()[index]);
        return taken;
    }();
    return docstrings;
}

/// One that is as near to 2,000 characters as there is.
const Docstrings& twoKilobytes()
{
    static const Docstrings docstrings = {*std::ranges::min_element(
        corpus(), {}, [](const QString& docstring) { return std::abs(docstring.size() - 2000); })};
    return docstrings;
}

/// docutils, waiting for texts.
class Docutils
{
public:
    Docutils() { m_process.start(QStringLiteral(DOCUTILS_SCRIPT), QStringList()); }
    ~Docutils()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    /// The seconds that it takes; 0 when it does not answer.
    double convert(const Docstrings& docstrings)
    {
        QJsonArray texts;
        for (const QString& docstring : docstrings)
            texts.append(docstring);
        m_process.write(QJsonDocument(texts).toJson(QJsonDocument::Compact) + '\n');
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead(60'000))
                return 0;
        return m_process.readLine().trimmed().toDouble();
    }

private:
    QProcess m_process;
};

Docutils& docutils()
{
    static Docutils process;
    return process;
}

void countTexts(benchmark::State& state, const Docstrings& docstrings)
{
    std::int64_t bytes = 0;
    for (const QString& docstring : docstrings)
        bytes += docstring.toUtf8().size();
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(docstrings.size()));
    state.SetBytesProcessed(state.iterations() * bytes);
}

void convertByUs(benchmark::State& state, const Docstrings& docstrings)
{
    const PythonLSPConversionLibrary library;
    for (auto _ : state)
        for (const QString& docstring : docstrings)
            benchmark::DoNotOptimize(library.convertToHTML(docstring));
}

void convertByDocutils(benchmark::State& state, const Docstrings& docstrings)
{
    for (auto _ : state) {
        const double seconds = docutils().convert(docstrings);
        if (seconds == 0)
            state.SkipWithError("docutils does not answer");
        state.SetIterationTime(seconds);
    }
}

void docstringsByUs(benchmark::State& state)
{
    convertByUs(state, sample());
    countTexts(state, sample());
}
BENCHMARK(docstringsByUs)->Name("docstrings to HTML/halvorin");

void docstringsByDocutils(benchmark::State& state)
{
    convertByDocutils(state, sample());
    countTexts(state, sample());
}
BENCHMARK(docstringsByDocutils)->Name("docstrings to HTML/docutils")->UseManualTime()->Iterations(1);

void twoKilobytesByUs(benchmark::State& state)
{
    convertByUs(state, twoKilobytes());
}
BENCHMARK(twoKilobytesByUs)->Name("docstring of 2 kB to HTML/halvorin");

void twoKilobytesByDocutils(benchmark::State& state)
{
    convertByDocutils(state, twoKilobytes());
}
BENCHMARK(twoKilobytesByDocutils)->Name("docstring of 2 kB to HTML/docutils")->UseManualTime()->Iterations(5);

/// The docstring of the whole corpus that takes the longest.
void slowestDocstring(benchmark::State& state)
{
    const PythonLSPConversionLibrary library;
    for (auto _ : state) {
        double slowest = 0;
        for (const QString& docstring : corpus()) {
            const auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(library.convertToHTML(docstring));
            slowest = std::max(
                slowest, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
        state.SetIterationTime(slowest);
    }
}
BENCHMARK(slowestDocstring)->Name("slowest docstring to HTML/halvorin")->UseManualTime()->Iterations(1);

/// Text of which the parts are alike: it takes twice the time for twice the text.
void longText(benchmark::State& state, int repetitions)
{
    const PythonLSPConversionLibrary library;
    const QString text =
        QStringLiteral(
            "Title\n=====\n\nSome *words* and ``code``.\n\n- a\n- b\n\n1. c\n2. d\n\nt : u\n    v\n\n"
            "x::\n\n    y\n\n>>> z\n\n+---+---+\n| a | b |\n+---+---+\n\n== ==\na  b\n== ==\n\n")
            .repeated(repetitions);
    for (auto _ : state)
        benchmark::DoNotOptimize(library.convertToHTML(text));
}
BENCHMARK_CAPTURE(longText, halvorin, 1200)->Name("200 kB to HTML/halvorin");
BENCHMARK_CAPTURE(longText, half, 600)->Name("200 kB to HTML/half");

} // namespace
