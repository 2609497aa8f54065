#include "bounded/anyactor.h"
#include "bounded/boundedform.h"
#include "bounded/boundedrules.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/json/jsonreader.h"
#include "statechart/runtime/initialisationevent.h"

#include <cstdlib>
#include <set>
#include <sstream>

namespace {

using Chart = std::shared_ptr<const DigitalDeviceStateChart>;

class InputChange : public AbstractDigitalDeviceEvent
{
public:
    int type() const override { return inputChange; }
};

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Enters so many states and no more: chains of transitions may have no end.
class BoundedActor : public AnyActor
{
public:
    using AnyActor::AnyActor;

    void stateEntered(const std::shared_ptr<AbstractState>& state) override
    {
        AnyActor::stateEntered(state);
        if (++m_entries > 1000)
            throw BoundReached("the states entered");
    }

    /// What is always so, also when an action has raised something.
    void checkActiveStates() const
    {
        std::set<const AbstractState*> seen;
        for (const std::shared_ptr<AbstractState>& state : activeStates()) {
            require(state->type() == AbstractState::atomic && isActive(*state));
            require(seen.insert(state.get()).second);
            for (const AbstractState* outer = state->parent.get(); outer; outer = outer->parent.get())
                require(isActive(*outer));
        }
    }

private:
    int m_entries = 0;
};

template <class Step>
void take(BoundedActor& actor, Step step)
{
    try {
        step();
    } catch (const std::runtime_error&) {
        // what an action raises, or the end of the bounds
    }
    actor.checkActiveStates();
}

void run(Chart chart)
{
    BoundedActor actor(std::move(chart));
    take(actor, [&] { actor.start(); });
    for (std::uint64_t round = 1; round <= 6; ++round) {
        take(actor, [&] { actor.dispatch(InputChange()); });
        take(actor, [&] { actor.dispatch(WakeRequestedEvent(round)); });
    }
    take(actor, [&] { actor.dispatch(InitialisationEvent()); });
}

/// A device that links, or null. Whatever is wrong has words.
Chart linked(const JsonObject& compiled, std::shared_ptr<CodeBuilder> builder)
{
    try {
        return linkDeviceStateChart(compiled, std::move(builder));
    } catch (const std::runtime_error& failure) {
        require(*failure.what() != '\0');
    } catch (const std::out_of_range& failure) {
        require(*failure.what() != '\0');
    }
    return nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    JsonValue compiled;
    try {
        std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
        compiled = asObject(readDocument(input));
    } catch (const JsonException&) {
        return 0;
    }
    if (!linked(compiled.asObject(), DDCodeBuilderFactory::createCodeBuilder()))
        return 0;

    // The same code once more, with an end to its loops.
    bound(compiled);
    const std::shared_ptr<const BuildRules> rules(std::shared_ptr<void>(), &boundedRules());
    if (Chart chart = linked(compiled.asObject(), std::make_shared<CodeBuilder>(rules)))
        run(std::move(chart));
    return 0;
}
