#include "cycle.h"
#include "support/devices/quietdevice.h"

namespace {

/// The members of a state that count.
constexpr auto counts =
    R"("onEntry": "setVariable(\"entered\", getVariable_int(\"entered\") + 1);",
       "onExit": "setVariable(\"left\", getVariable_int(\"left\") + 1);")";

std::string leaf(const std::string& name, const std::string& event, const std::string& target)
{
    return "\"" + name + R"(": {"type": "atomic", )" + counts + R"(, "transitions": {"from )" + name +
           R"(": {"target": ")" + target + R"(", "order": 0, "event": ")" + event + R"("}}})";
}

/// Three states, one after the other.
std::string region(const std::string& number)
{
    const std::string event = "t" + number;
    const std::string x = "x" + number;
    const std::string y = "y" + number;
    const std::string z = "z" + number;
    return "\"r" + number + R"(": {"type": "compound", "initial": ")" + x + R"(", )" + counts +
           R"(, "substates": {)" + leaf(x, event, y) + ", " + leaf(y, event, z) + ", " + leaf(z, event, x) +
           "}}";
}

std::string definition()
{
    const std::string c = R"json("c": {"type": "atomic",
        "onEntry": ["setVariable(\"entered\", getVariable_int(\"entered\") + 1);",
            "setVariable(\"visits\", getVariable_int(\"visits\") + 1);"],
        "onExit": "setVariable(\"left\", getVariable_int(\"left\") + 1);",
        "transitions": {
            "to p": {"target": "p", "order": 0, "event": "next", "conditions": "getVariable_int(\"visits\") % 4 != 0"},
            "to a": {"target": "a", "order": 1, "event": "next"}}})json";
    const std::string p = std::string(R"("p": {"type": "parallel", )") + counts +
                          R"(, "transitions": {"back": {"target": "a", "order": 0, "event": "back"}},
        "substates": {)" + region("1") +
                          ", " + region("2") + "}}";
    return R"({"outputs": {}, "outputDelay": 1, "start": "root",
        "variables": {"entered": {"type": "int", "value": 0}, "left": {"type": "int", "value": 0},
            "visits": {"type": "int", "value": 0}},
        "states": {"root": {"type": "compound", "initial": "a", "substates": {)" +
           leaf("a", "next", "b") + ", " + leaf("b", "next", "c") + ", " + c + ", " + p + "}}}}";
}

class HalvorinCycle : public AbstractCycleEngine
{
public:
    HalvorinCycle() : m_device(quietDevice(definition()))
    {
        for (const CycleEvent event : cycleEvents)
            m_events.emplace_back(cycleEventNames[static_cast<std::size_t>(event)]);
        m_device->start();
    }

    void runCycle() override
    {
        for (const NamedEvent& event : m_events)
            m_device->dispatch(event);
    }

    int entered() const override { return m_device->heldVariable<std::int32_t>("entered"); }

private:
    std::unique_ptr<QuietDevice> m_device;
    std::vector<NamedEvent> m_events;
};

} // namespace

std::unique_ptr<AbstractCycleEngine> halvorinCycle()
{
    return std::make_unique<HalvorinCycle>();
}
