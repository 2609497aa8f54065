#include "kernels.h"

#include <benchmark/benchmark.h>

#include <dlfcn.h>

#include <cstdio>
#include <stdexcept>
#include <string>

// Every kernel in every engine. The results must agree before anything is timed.

namespace {

/// An engine that stands in a module of its own, which stays loaded.
template <const char* path>
std::unique_ptr<Kernel> makeFromModule(std::size_t index)
{
    void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (!module)
        throw std::runtime_error(dlerror());
    auto* make = reinterpret_cast<Kernel* (*)(std::size_t)>(dlsym(module, "makeKernel"));
    return std::unique_ptr<Kernel>(make(index));
}

constexpr char luaModule[] = KERNELS_LUA;
constexpr char luaJitModule[] = KERNELS_LUAJIT;

struct Engine
{
    const char* name;
    MakeKernel* make;
};

constexpr auto engines = std::to_array<Engine>({
    {"halvorin", makeHalvorinKernel},
    {"lua", makeFromModule<luaModule>},
    {"luajit", makeFromModule<luaJitModule>},
    {"angelscript", makeAngelScriptKernel},
    {"native", makeNativeKernel},
});

void time(benchmark::State& state, Kernel& kernel, int rounds)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(kernel.run());
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * rounds);
}

void registerKernel(std::size_t index)
{
    const double expected = makeNativeKernel(index)->run();
    for (const Engine& engine : engines) {
        const std::string name = "kernel" + std::to_string(index + 1) + "/" + engine.name;
        std::shared_ptr<Kernel> kernel = engine.make(index);
        if (const double result = kernel->run(); result != expected)
            throw std::runtime_error(name + " gives " + std::to_string(result) + ", native code " +
                                     std::to_string(expected));
        const auto run = [kernel, rounds = kernelRounds[index]](benchmark::State& state) {
            time(state, *kernel, rounds);
        };
        benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
    }
}

} // namespace

int main(int argc, char** argv)
try {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    for (std::size_t index = 0; index < kernelRounds.size(); ++index)
        registerKernel(index);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
