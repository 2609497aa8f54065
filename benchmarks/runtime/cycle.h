#ifndef CYCLE_H
#define CYCLE_H

#include <array>
#include <memory>

// One chart in several engines: a root with a, b, c and a parallel p of two regions with three states each.
// "next" leads from a to b to c, and from c to p, or back to a at every fourth visit of c; "back" leads from
// p to a; "t1" and "t2" step the regions. Each state counts its entries, and its exits.

enum class CycleEvent
{
    next,
    back,
    t1,
    t2,
};

inline constexpr std::array<const char*, 4> cycleEventNames{"next", "back", "t1", "t2"};

/// What is dispatched again and again.
inline constexpr std::array<CycleEvent, 16> cycleEvents{
    CycleEvent::next, CycleEvent::next, CycleEvent::next, CycleEvent::t1,   CycleEvent::t2,   CycleEvent::t1,
    CycleEvent::t2,   CycleEvent::back, CycleEvent::next, CycleEvent::next, CycleEvent::next, CycleEvent::t2,
    CycleEvent::t2,   CycleEvent::t1,   CycleEvent::t1,   CycleEvent::back,
};

class AbstractCycleEngine
{
public:
    AbstractCycleEngine() = default;
    AbstractCycleEngine(const AbstractCycleEngine&) = delete;
    AbstractCycleEngine& operator=(const AbstractCycleEngine&) = delete;
    virtual ~AbstractCycleEngine() = default;

    /// Takes all of cycleEvents.
    virtual void runCycle() = 0;

    /// How many states were entered. What leaving p counts is each engine's own: ours leaves p alone, others
    /// all that is inside as well.
    virtual int entered() const = 0;
};

std::unique_ptr<AbstractCycleEngine> halvorinCycle();
std::unique_ptr<AbstractCycleEngine> qtScxmlCycle();
std::unique_ptr<AbstractCycleEngine> switchCycle();

#endif
