#include "cycle.h"
#include "support/devices/quietdevice.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

// Charts that run: one chart in our engine, in another and by hand, and what depth and pending wakes cost.

namespace {

std::string state(const std::string& name, const std::string& members)
{
    return "\"" + name + "\": {" + members + "}";
}

std::string transition(const std::string& name, const std::string& target, const std::string& members)
{
    return "\"" + name + R"(": {"target": ")" + target + R"(", "order": 0, )" + members + "}";
}

std::string device(const std::string& start, const std::string& states)
{
    return R"({"outputs": {}, "outputDelay": 1, "start": ")" + start + R"(", "states": {)" + states + "}}";
}

void runCycles(benchmark::State& state, std::unique_ptr<AbstractCycleEngine> (*make)())
{
    constexpr int comparedCycles = 100;
    const std::unique_ptr<AbstractCycleEngine> engine = make();
    const std::unique_ptr<AbstractCycleEngine> byHand = switchCycle();
    for (int cycle = 0; cycle < comparedCycles; ++cycle) {
        engine->runCycle();
        byHand->runCycle();
    }
    if (engine->entered() != byHand->entered())
        state.SkipWithError("the engine enters other states");

    for (auto _ : state)
        engine->runCycle();
    benchmark::DoNotOptimize(engine->entered());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(cycleEvents.size()));
}
BENCHMARK_CAPTURE(runCycles, halvorin, &halvorinCycle)->Name("chart event/halvorin");
BENCHMARK_CAPTURE(runCycles, qt, &qtScxmlCycle)->Name("chart event/qt-scxml");
BENCHMARK_CAPTURE(runCycles, limit, &switchCycle)->Name("chart event/limit");

/// A state so deep takes an event from the outermost state around it, leaves all of them, and enters them
/// again.
void runDeep(benchmark::State& state, int depth)
{
    std::string open;
    std::string close = ::state("leaf", R"("type": "atomic", "transitions": {)" +
                                            transition("up", "s0", R"("event": "up")") + "}");
    for (int level = 0; level < depth; ++level) {
        const std::string inner = level + 1 == depth ? "leaf" : "s" + std::to_string(level + 1);
        open += "\"s" + std::to_string(level) + R"(": {"type": "compound", "initial": ")" + inner + "\", ";
        if (level == 0)
            open += R"("transitions": {)" + transition("never", "s0", R"("event": "never")") + "}, ";
        open += R"("substates": {)";
        close += "}}";
    }
    const std::unique_ptr<QuietDevice> deep = quietDevice(device("s0", open + close));
    deep->start();
    const NamedEvent up("up");
    const NamedEvent other("other");
    for (auto _ : state) {
        deep->dispatch(up);    // leaves and enters every level
        deep->dispatch(other); // is tried on every level
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK_CAPTURE(runDeep, whole, 480)->Name("chart event through 480 levels/halvorin");
BENCHMARK_CAPTURE(runDeep, half, 240)->Name("chart event through 480 levels/half");

/// A wake fires while so many others are pending: those of states that were left from outside.
void runBesidePending(benchmark::State& state, int pending)
{
    const std::string wake = R"("event": "wake", "wakeTime": "1")";
    const std::string ticking =
        ::state("ticking", R"("type": "atomic", "transitions": {)" + transition("tick", "ticking", wake) +
                               ", " + transition("go", "box", R"("event": "go")") + "}");
    const std::string waiting = ::state("waiting", R"("type": "atomic", "transitions": {)" +
                                                       transition("wait", "waiting", wake) + "}");
    const std::string box = ::state("box", R"("type": "compound", "initial": "waiting", "transitions": {)" +
                                               transition("back", "ticking", R"("event": "go")") +
                                               R"(}, "substates": {)" + waiting + "}");
    const std::unique_ptr<QuietDevice> device = quietDevice(::device("ticking", ticking + ", " + box));
    device->start();
    const NamedEvent go("go");
    for (int count = 0; count < pending; ++count) {
        device->dispatch(go);
        device->dispatch(go);
    }
    std::uint64_t wakeIdentifier = 0;
    for (const auto& [identifier, transition] : device->pendingWakes())
        if (transition->identifier == "tick")
            wakeIdentifier = identifier;
    for (auto _ : state)
        device->dispatch(WakeRequestedEvent(wakeIdentifier++));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(runBesidePending, many, 100000)->Name("chart wake beside 100000 others/halvorin");
BENCHMARK_CAPTURE(runBesidePending, few, 10)->Name("chart wake beside 100000 others/10 others");

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
