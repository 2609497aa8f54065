// A long walk through each example: its inputs are driven at random. Nothing stops it, its active states fit
// together after every event, and a second walk with the same seed is the same. HALVORIN_WALK_EVENTS is the
// number of events.

#include "reports/tracewriter.h"
#include "simulator/devicefile.h"
#include "simulator/simulation.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/examples.h"
#include "statechart/runtime/abstracthierarchicalstate.h"

#include <cstdlib>
#include <random>

namespace {

constexpr std::size_t stepsOfAStimulus = 1000;

std::uint64_t eventsToWalk()
{
    const char* const asked = std::getenv("HALVORIN_WALK_EVENTS");
    return asked == nullptr ? 20'000 : std::strtoull(asked, nullptr, 10);
}

/// FNV-1a, of all lines of a trace.
class TraceHash
{
public:
    void add(std::string_view text)
    {
        for (const char character : text)
            m_hash = (m_hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
    }

    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xcbf29ce484222325;
};

/// Looks at the active states after every event. In the examples no transition leads into what is inside of
/// its own source, so that of the rules in docs/decisions/charts-that-differ.md none lets two states of one
/// level be active; a region that is left alone active is one.
class ActiveStatesCheck : public SimulationListener
{
public:
    void start(const SimulatedDevice& device) override { m_device = &device; }

    void eventEnds() override
    {
        std::unordered_map<const AbstractState*, const AbstractState*>
            childOf; // of compound states and, null, the top
        const auto& active = m_device->activeStates();
        ASSERT_FALSE(active.empty());
        for (const auto& leaf : active) {
            ASSERT_EQ(leaf->type(), AbstractState::atomic) << leaf->identifier;
            for (const AbstractState* state = leaf.get(); state != nullptr; state = state->parent.get()) {
                if (state->parent && state->parent->type() == AbstractState::parallel)
                    continue;
                const auto [known, isNew] = childOf.emplace(state->parent.get(), state);
                ASSERT_EQ(known->second, state) << known->second->identifier << " and " << state->identifier;
            }
        }
        for (std::size_t left = 0; left < active.size(); ++left)
            for (std::size_t right = left + 1; right < active.size(); ++right)
                ASSERT_NE(active[left], active[right]) << active[left]->identifier;
    }

private:
    const SimulatedDevice* m_device = nullptr;
};

struct Walk
{
    std::uint64_t events = 0;
    std::uint64_t hash = 0;
};

class RandomWalk
{
public:
    RandomWalk(const std::filesystem::path& definition, std::uint32_t seed)
        : m_compiled(compiledDeviceOf({readText(definition), std::nullopt})), m_order(m_compiled),
          m_random(seed)
    {
        const SignalTable table(*link(), m_order);
        for (const Signal& signal : table.all())
            if (signal.isInput)
                m_inputs.push_back(signal);
    }

    /// One run after the other, each driven by a stimulus of its own, until there were so many events.
    Walk go(std::uint64_t events)
    {
        Walk walk;
        TraceHash hash;
        TraceWriter trace([&](std::string_view lines) { hash.add(lines); });
        ActiveStatesCheck check;
        std::vector<SimulationListener*> listeners{&trace, &check};
        while (walk.events < events) {
            Simulation simulation(link(), m_order, randomSetup(), listeners);
            const SimulationResult result = simulation.run();
            EXPECT_EQ(result.error, "");
            walk.events += result.eventCount;
            fitScale(result.eventCount);
            if (testing::Test::HasFailure())
                break;
        }
        walk.hash = hash.value();
        return walk;
    }

private:
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(m_random() % limit); }

    /// Each device has a time scale of its own: longer steps for one that wakes seldom.
    void fitScale(std::uint64_t eventCount)
    {
        static constexpr Ticks longest = 1'000'000'000'000'000;
        if (eventCount > 4 * stepsOfAStimulus)
            m_scale = std::max<Ticks>(m_scale / 10, 1'000);
        else
            m_scale = std::min(m_scale * 10, longest);
    }

    SimulationSetup randomSetup()
    {
        SimulationSetup setup;
        Ticks time = 0;
        for (std::size_t step = 0; step < stepsOfAStimulus; ++step) {
            // At one time, within a delay, and between the wakes.
            const std::array<Ticks, 4> longest{0, 1'000, m_scale, m_scale};
            if (const Ticks span = longest[below(4)])
                time += 1 + static_cast<Ticks>(below(1000)) * (span / 1000);
            addEvent(setup.stimulus, time);
        }
        return setup;
    }

    void addEvent(Stimulus& stimulus, Ticks time)
    {
        Signal input = m_inputs[below(static_cast<std::uint32_t>(m_inputs.size()))];
        input.lines = m_random() & input.mask();
        stimulus.events.push_back({"", time, input.isBus() ? TargetKind::bus : TargetKind::pin, input.name,
                                   input.isBus() ? JsonValue(input.valueText())
                                                 : JsonValue(static_cast<std::int32_t>(input.lines))});
    }

    std::shared_ptr<const DigitalDeviceStateChart> link() const
    {
        return linkDeviceStateChart(m_compiled, DDCodeBuilderFactory::createCodeBuilder());
    }

    JsonObject m_compiled;
    DeviceOrder m_order;
    std::vector<Signal> m_inputs;
    std::mt19937 m_random;
    Ticks m_scale = 1'000'000;
};

class ExampleWalk : public testing::TestWithParam<std::filesystem::path>
{};

} // namespace

TEST_P(ExampleWalk, IsNeverStoppedStaysConsistentAndCanBeRepeated)
{
    const std::uint64_t events = eventsToWalk();
    const Walk first = RandomWalk(GetParam(), 1).go(events);
    ASSERT_FALSE(HasFailure());
    EXPECT_GE(first.events, events);
    const Walk second = RandomWalk(GetParam(), 1).go(events);
    EXPECT_EQ(first.events, second.events);
    EXPECT_EQ(first.hash, second.hash);
    RecordProperty("events", std::to_string(first.events));
    EXPECT_NE(RandomWalk(GetParam(), 2).go(1000).hash, RandomWalk(GetParam(), 3).go(1000).hash);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleWalk, testing::ValuesIn(definitionsUnder("charts")),
                         [](const auto& definition) {
                             std::string name = definition.param.parent_path().filename().native();
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });
