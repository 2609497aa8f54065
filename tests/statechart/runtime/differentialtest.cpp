// Random charts run as the rules say, word for word.

#include "chartmaker.h"
#include "planshrinker.h"
#include "referencedevice.h"
#include "statechart/runtime/initialisationevent.h"
#include "traceactor.h"

#include <algorithm>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int maximumEntries = 300;

/// Answers as the reference does.
class AnsweringActor : public TraceActor
{
public:
    AnsweringActor(Chart chart, Answers answers) : TraceActor(std::move(chart)), m_answers(answers)
    {
        entriesLeft = maximumEntries;
    }

    bool isPinHigh(const std::string& pin) override
    {
        RecordingActor::isPinHigh(pin);
        return m_answers.isHigh();
    }

    double getParameter_double(const std::string& name) override
    {
        calls.push_back("getParameter_double(" + name + ")");
        return m_answers.time();
    }

    void dispatchPlanned(const PlannedEvent& event)
    {
        switch (event.kind) {
        case PlannedEvent::Kind::named:
            return dispatch(NamedEvent(event.name));
        case PlannedEvent::Kind::change:
            return dispatch(InputChange());
        case PlannedEvent::Kind::wake:
            return dispatch(WakeRequestedEvent(event.wakeIdentifier));
        case PlannedEvent::Kind::initialisation:
            return dispatch(InitialisationEvent());
        }
    }

private:
    Answers m_answers;
};

/// Everything that a run shows: what happens, and after each event the active states and the pending wakes.
class Record
{
public:
    template <class Run>
    void add(Trace& happened, Run run)
    {
        std::string end = "done";
        try {
            run();
        } catch (const EndlessRun&) {
            m_hasEnded = true;
        } catch (const NoAnswer& failure) {
            end = failure.what();
        }
        m_lines.insert(m_lines.end(), happened.begin(), happened.end());
        happened.clear();
        m_lines.push_back(end);
    }

    void add(const char* what, const Trace& names)
    {
        m_lines.emplace_back(what);
        for (const std::string& name : names)
            m_lines.back() += " " + name;
    }

    template <class Wakes>
    void addWakes(const Wakes& wakes)
    {
        Trace names;
        for (const auto& [identifier, transition] : wakes)
            names.push_back(formatText("{}={}", identifier, transition));
        add("pending:", names);
    }

    bool hasEnded() const { return m_hasEnded; }
    const Trace& lines() const { return m_lines; }

private:
    Trace m_lines;
    bool m_hasEnded = false;
};

Trace runOfReference(const ChartPlan& plan, std::uint64_t seed)
{
    ReferenceDevice device(plan, Answers(seed), maximumEntries);
    Record record;
    const auto step = [&](auto run) {
        record.add(device.trace, run);
        record.add("active:", device.active());
        record.addWakes(device.pendingWakes());
    };
    step([&] { device.start(); });
    for (const PlannedEvent& event : plan.events)
        if (!record.hasEnded())
            step([&] { device.dispatch(event); });
    return record.lines();
}

Trace runOf(AnsweringActor& actor, const std::vector<PlannedEvent>& events)
{
    Record record;
    const auto step = [&](auto run) {
        record.add(actor.calls, run);
        record.add("active:", actor.active());
        std::map<std::uint64_t, std::string> wakes;
        for (const auto& [identifier, transition] : actor.pendingWakes())
            wakes.emplace(identifier, transition->identifier);
        record.addWakes(wakes);
    };
    step([&] { actor.start(); });
    for (const PlannedEvent& event : events)
        if (!record.hasEnded())
            step([&] { actor.dispatchPlanned(event); });
    return record.lines();
}

Chart linkedPlan(const ChartPlan& plan)
{
    static const std::shared_ptr<CodeBuilder> builder = deviceCodeBuilder();
    return linkDeviceStateChart(compileDeviceStateChart(jsonOf(definitionOf(plan)).asObject(), builder),
                                builder);
}

template <class Actor>
Trace runOfActor(const ChartPlan& plan, std::uint64_t seed)
{
    Actor actor(linkedPlan(plan), Answers(seed));
    return runOf(actor, plan.events);
}

template <class Actor>
bool differs(const ChartPlan& plan, std::uint64_t seed)
{
    return runOfActor<Actor>(plan, seed) != runOfReference(plan, seed);
}

/// What both have in common at first, and where they part.
std::string differenceOf(const Trace& ours, const Trace& reference)
{
    const auto [left, right] = std::mismatch(ours.begin(), ours.end(), reference.begin(), reference.end());
    std::string text;
    for (auto line = ours.begin(); line != left; ++line)
        text += "  " + *line + "\n";
    text += "ours:      " + (left == ours.end() ? "(the end)" : *left) + "\n";
    return text + "reference: " + (right == reference.end() ? "(the end)" : *right) + "\n";
}

/// A chart that is run differently, as small as it gets.
template <class Actor>
ChartPlan smallestDifference(const ChartPlan& plan, std::uint64_t seed)
{
    return shrunk(plan, [&](const ChartPlan& smaller) { return differs<Actor>(smaller, seed); });
}

/// What the runs of all random charts have come across.
class Coverage
{
public:
    void add(const Trace& lines)
    {
        for (const std::string& line : lines)
            ++m_counts[line.substr(0, line.find_first_of(" ("))];
    }

    int operator[](const std::string& word) { return m_counts[word]; }

private:
    std::map<std::string, int> m_counts;
};

TEST(Differential, RunsRandomChartsAsTheReferenceDoes)
{
    Coverage coverage;
    for (std::uint64_t seed = 1; seed <= 5000; ++seed) {
        const ChartPlan plan = randomChart(seed);
        const Trace expected = runOfReference(plan, seed);
        coverage.add(expected);
        if (runOfActor<AnsweringActor>(plan, seed) == expected)
            continue;
        const ChartPlan smallest = smallestDifference<AnsweringActor>(plan, seed);
        FAIL() << "seed " << seed << "\n"
               << textOf(smallest) << "\n"
               << differenceOf(runOfActor<AnsweringActor>(smallest, seed), runOfReference(smallest, seed));
    }
    const std::map<std::string, int> least{{"enter", 50000},     {"exit", 20000},        {"print", 50000},
                                           {"isPinHigh", 20000}, {"scheduleWake", 5000}, {"no", 100}};
    for (const auto& [word, count] : least)
        EXPECT_GT(coverage[word], count) << word;
}

/// Forgets what one event is called.
class ForgetfulActor : public AnsweringActor
{
public:
    using AnsweringActor::AnsweringActor;

    bool eventMatches(const Transition& transition, const AbstractEvent& event) override
    {
        return transition.event != "e2" && AnsweringActor::eventMatches(transition, event);
    }
};

TEST(Differential, FindsAnActorThatIsWrongAndShrinksItsChart)
{
    std::uint64_t seed = 1;
    while (!differs<ForgetfulActor>(randomChart(seed), seed))
        ++seed;
    const ChartPlan smallest = smallestDifference<ForgetfulActor>(randomChart(seed), seed);
    EXPECT_TRUE(differs<ForgetfulActor>(smallest, seed));
    ASSERT_EQ(smallest.events.size(), 1u);
    EXPECT_EQ(smallest.events.front().name, "e2");
    EXPECT_LE(smallest.states.size(), 2u);
    EXPECT_THAT(textOf(smallest), testing::HasSubstr(R"("event": "e2")"));
    EXPECT_THAT(textOf(smallest), testing::EndsWith("events: e2"));
}

TEST(Differential, ShowsWhereTwoRunsPart)
{
    EXPECT_EQ(differenceOf({"a", "b", "c"}, {"a", "b", "d"}), "  a\n  b\nours:      c\nreference: d\n");
    EXPECT_EQ(differenceOf({"a"}, {"a", "b"}), "  a\nours:      (the end)\nreference: b\n");
    EXPECT_EQ(differenceOf({"a"}, {}), "ours:      a\nreference: (the end)\n");
}

TEST(Differential, ShrinksNothingThatDoesNotFail)
{
    const ChartPlan plan = randomChart(7);
    EXPECT_EQ(textOf(shrunk(plan, [](const ChartPlan&) { return false; })), textOf(plan));
}

TEST(Differential, ShrinksToAChartOfOneStateWhenEverythingFails)
{
    const ChartPlan smallest = shrunk(randomChart(7), [](const ChartPlan&) { return true; });
    EXPECT_EQ(smallest.states.size(), 1u);
    EXPECT_THAT(smallest.states.front().substates, IsEmpty());
    EXPECT_THAT(smallest.states.front().transitions, IsEmpty());
    EXPECT_THAT(smallest.events, IsEmpty());
    EXPECT_THAT(runOfReference(smallest, 7), ElementsAre("exit ", "enter " + smallest.start, "done",
                                                         "active: " + smallest.start, "pending:"));
}

} // namespace
