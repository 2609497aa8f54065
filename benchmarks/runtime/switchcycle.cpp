#include "cycle.h"

// The chart as one writes it by hand for speed: what any engine could reach at most.

namespace {

class SwitchCycle : public AbstractCycleEngine
{
public:
    SwitchCycle() { enterA(); }

    void runCycle() override
    {
        for (const CycleEvent event : cycleEvents)
            take(event);
    }

    int entered() const override { return m_entered; }

private:
    enum class State
    {
        a,
        b,
        c,
        p,
    };

    void take(CycleEvent event)
    {
        switch (m_state) {
        case State::a:
            if (event == CycleEvent::next)
                step(State::b);
            break;
        case State::b:
            if (event == CycleEvent::next) {
                step(State::c);
                ++m_visits;
            }
            break;
        case State::c:
            if (event == CycleEvent::next)
                leaveC();
            break;
        case State::p:
            takeInP(event);
            break;
        }
    }

    void takeInP(CycleEvent event)
    {
        switch (event) {
        case CycleEvent::t1:
            stepRegion(m_first);
            break;
        case CycleEvent::t2:
            stepRegion(m_second);
            break;
        case CycleEvent::back:
            ++m_left;
            enterA();
            break;
        case CycleEvent::next:
            break;
        }
    }

    void leaveC()
    {
        if (m_visits % 4 == 0)
            return step(State::a);
        step(State::p);
        m_first = 0;
        m_second = 0;
        m_entered += 4; // two regions and a state in each
    }

    void step(State state)
    {
        ++m_left;
        m_state = state;
        ++m_entered;
    }

    void stepRegion(int& state)
    {
        ++m_left;
        state = state == 2 ? 0 : state + 1;
        ++m_entered;
    }

    void enterA()
    {
        m_state = State::a;
        ++m_entered;
    }

    State m_state = State::a;
    int m_first = 0;
    int m_second = 0;
    int m_visits = 0;
    int m_entered = 0;
    int m_left = 0;
};

} // namespace

std::unique_ptr<AbstractCycleEngine> switchCycle()
{
    return std::make_unique<SwitchCycle>();
}
