// A device that runs takes no memory: what it works with is there after the first events.

#include "support/allocations/allocationcounter.h"
#include "support/devices/quietdevice.h"

namespace {

/// How much is allocated in many rounds, after a few that take what is needed.
template <class Round>
std::size_t allocationsOfRounds(Round round)
{
    for (int count = 0; count < 10; ++count)
        round();
    const std::size_t before = allocationCount();
    for (int count = 0; count < 1000; ++count)
        round();
    return allocationCount() - before;
}

TEST(Allocations, AreNotMadeForEntriesExitsConditionsAndActions)
{
    const std::unique_ptr<QuietDevice> device =
        quietDevice(R"json({"outputs": {}, "outputDelay": 1, "start": "root",
        "variables": {"count": {"type": "int", "value": 0}},
        "states": {"root": {"type": "compound", "initial": "a", "substates": {
            "a": {"type": "atomic", "onEntry": "setVariable(\"count\", getVariable_int(\"count\") + 1);",
                "transitions": {
                    "again": {"target": "a", "order": 0, "event": "next", "conditions": "getVariable_int(\"count\") % 4 == 0"},
                    "to p": {"target": "p", "order": 1, "event": "next"}}},
            "p": {"type": "parallel", "onExit": "int n = 0; n = n + 1;",
                "transitions": {"back": {"target": "a", "order": 0, "event": "back"}},
                "substates": {
                    "r1": {"type": "compound", "initial": "x", "substates": {
                        "x": {"type": "atomic", "transitions": {"step": {"target": "y", "order": 0, "event": "step"}}},
                        "y": {"type": "atomic", "transitions": {"on": {"target": "x", "order": 0}}}}},
                    "r2": {"type": "atomic"}}}}}}})json");
    const NamedEvent next("next");
    const NamedEvent step("step");
    const NamedEvent back("back");
    const NamedEvent unknown("unknown");
    device->start();
    EXPECT_EQ(allocationsOfRounds([&] {
                  device->dispatch(next);
                  device->dispatch(step);
                  device->dispatch(unknown);
                  device->dispatch(back);
              }),
              0u);
    EXPECT_EQ(device->heldVariable<std::int32_t>("count"), 1011) << "a is entered once in every round";
}

TEST(Allocations, AreNotMadeForWakes)
{
    const std::unique_ptr<QuietDevice> device =
        quietDevice(R"json({"outputs": {}, "outputDelay": 1, "start": "a",
        "states": {
            "a": {"type": "atomic", "transitions": {
                "tick": {"target": "b", "order": 0, "event": "wake", "wakeTime": "1n"},
                "late": {"target": "a", "order": 1, "event": "wake", "wakeTimeCalc": "2 * 1e-6"}}},
            "b": {"type": "atomic", "transitions": {
                "tock": {"target": "a", "order": 0, "event": "wake", "wakeTime": "1n"}}}}})json");
    device->start();
    std::uint64_t wake = 1; // of "tick"; that of "late" is the next
    EXPECT_EQ(allocationsOfRounds([&] {
                  device->dispatch(WakeRequestedEvent(wake));
                  device->dispatch(WakeRequestedEvent(wake + 1)); // was cancelled
                  device->dispatch(WakeRequestedEvent(wake + 2)); // of "tock"
                  wake += 3;
              }),
              0u);
    EXPECT_EQ(device->pendingWakes().size(), 2u);
    EXPECT_TRUE(device->pendingWakes().contains(wake)) << "every wake fired";
}

} // namespace
