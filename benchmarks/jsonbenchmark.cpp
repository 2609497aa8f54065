#include "charttext.h"
#include "jsonengines.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <malloc.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

// The engine's JSON beside its peers: a definition of 10 MB read, written and freed, in memory and through a
// file, and how much memory reading it takes.

namespace {

const std::string& definition()
{
    static const std::string text = chartOfSize(10'000'000);
    return text;
}

/// A file of ours, removed in the end.
class File
{
public:
    File() : m_path((std::filesystem::temp_directory_path() / "halvorin-benchmark-XXXXXX").native())
    {
        ::close(::mkstemp(m_path.data()));
        std::ofstream(m_path) << definition();
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { std::filesystem::remove(m_path); }

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

/// How long each step of an iteration takes, and which of them count.
class Steps
{
public:
    template <class Step>
    void run(bool isCounted, Step step)
    {
        const auto start = std::chrono::steady_clock::now();
        step();
        if (isCounted)
            m_seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    double seconds() const { return m_seconds; }

private:
    double m_seconds = 0;
};

struct Counted
{
    bool read = false;
    bool write = false;
    bool free = false;
};

template <class Engine>
void inMemory(benchmark::State& state, Counted counted)
{
    for (auto _ : state) {
        Steps steps;
        std::optional<typename Engine::Document> document;
        steps.run(counted.read, [&] { document.emplace(Engine::read(definition())); });
        if (counted.write)
            steps.run(true, [&] { benchmark::DoNotOptimize(Engine::write(*document)); });
        steps.run(counted.free, [&] { document.reset(); });
        state.SetIterationTime(steps.seconds());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * definition().size()));
}

template <class Engine>
void throughFile(benchmark::State& state, Counted counted)
{
    const File input;
    const File output;
    for (auto _ : state) {
        Steps steps;
        std::optional<typename Engine::Document> document;
        steps.run(counted.read, [&] { document.emplace(Engine::readFile(input.path())); });
        if (counted.write)
            steps.run(true, [&] { Engine::writeFile(*document, output.path()); });
        steps.run(counted.free, [&] { document.reset(); });
        state.SetIterationTime(steps.seconds());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * definition().size()));
}

/// A row of this process's own status, in kilobytes.
long statusKilobytes(const std::string& row)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(row + ':'))
            return std::stol(line.substr(row.size() + 1));
    }
    return 0;
}

/// The most memory that reading takes on top of what was there, measured in a process of its own.
template <class Engine>
long readingKilobytes()
{
    int ends[2];
    if (::pipe(ends) != 0)
        return 0;
    const pid_t child = ::fork();
    if (child == 0) {
        ::malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5; // the peak starts anew
        const long before = statusKilobytes("VmRSS");
        const auto document = Engine::read(definition());
        const long taken = statusKilobytes("VmHWM") - before;
        ::_exit(::write(ends[1], &taken, sizeof taken) == sizeof taken ? 0 : 1);
    }
    ::close(ends[1]);
    long taken = 0;
    if (::read(ends[0], &taken, sizeof taken) != sizeof taken)
        taken = 0;
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return taken;
}

template <class Engine>
void memory(benchmark::State& state)
{
    long kilobytes = 0;
    for (auto _ : state)
        kilobytes = readingKilobytes<Engine>();
    state.counters["perByte"] =
        static_cast<double>(kilobytes) * 1024 / static_cast<double>(definition().size());
}

template <class Engine>
void add(const std::string& name)
{
    const auto addTimed = [&](const std::string& group, auto run, Counted counted) {
        benchmark::RegisterBenchmark((group + '/' + name).c_str(), run, counted)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    };
    addTimed("json 10 MB read", inMemory<Engine>, {.read = true});
    addTimed("json 10 MB write", inMemory<Engine>, {.write = true});
    addTimed("json 10 MB free", inMemory<Engine>, {.free = true});
    addTimed("json 10 MB read, write, free", inMemory<Engine>, {.read = true, .write = true, .free = true});
    addTimed("json 10 MB file read", throughFile<Engine>, {.read = true});
    addTimed("json 10 MB file write", throughFile<Engine>, {.write = true});
    addTimed("json 10 MB file read, write, free", throughFile<Engine>,
             {.read = true, .write = true, .free = true});
    benchmark::RegisterBenchmark(("json 10 MB memory of reading/" + name).c_str(), memory<Engine>)
        ->Iterations(1);
}

const bool added = [] {
    add<Halvorin>("halvorin");
    add<Nlohmann>("nlohmann-json");
    add<RapidJson>("rapidjson");
    add<QtJson>("qt");
    return true;
}();

} // namespace
