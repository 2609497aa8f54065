#include "charttext.h"

#include <algorithm>

namespace {

constexpr std::size_t statesOfAGroup = 25;

std::string number(std::size_t value)
{
    const std::string digits = std::to_string(value);
    return std::string(6 - std::min<std::size_t>(digits.size(), 6), '0') + digits;
}

std::string stateText(std::size_t index)
{
    const std::string self = number(index);
    const std::string next = number(index % statesOfAGroup == statesOfAGroup - 1 ? index : index + 1);
    return R"("state_)" + self +
           R"(": {"type": "atomic", "onEntry": ["\/\/ Zähler prüfen: größer als 15 → von vorn\n)"
           R"(int n = getVariable_int(\"count\");\nsetVariable(\"count\", (n + 1) % 16);", )"
           R"("writeBus(\"q\", getVariable_int(\"count\"));"], "onExit": "setPinLow(\"busy\");", )"
           R"("transitions": {"t_)" +
           self + R"(_a": {"target": "state_)" + next +
           R"(", "order": 0, "event": "change", )"
           R"~("conditions": ["isPositiveEdge(\"clk\")", "isPinLow(\"reset\") && getVariable_int(\"count\") < 12"], )~"
           R"("actions": "if (isPinHigh(\"load\")) {\n\tsetVariable(\"count\", 0);\n} else {\n)"
           R"(\tprint(\"計数 läuft\");\n\tsetPinHigh(\"busy\");\n}"}, "t_)" +
           self + R"(_b": {"target": "state_)" + self +
           R"(", "order": 1, "event": "wake", "wakeTime": "12.5n", "actions": ["setPinHigh(\"busy\");"]}}})";
}

/// @param isEnough is asked with the number of states and of bytes so far.
template <class IsEnough>
std::string chartText(IsEnough isEnough)
{
    std::string text = R"({"states": {)";
    for (std::size_t index = 0; index == 0 || !isEnough(index, text.size()); ++index) {
        const bool startsGroup = index % statesOfAGroup == 0;
        if (startsGroup) {
            text += index > 0 ? "}}, " : "";
            text += R"("group_)" + number(index / statesOfAGroup) +
                    R"(": {"type": "compound", "initial": "state_)" + number(index) + R"(", "substates": {)";
        }
        text += startsGroup ? "" : ", ";
        text += stateText(index);
    }
    return text +
           R"(}}}, "start": "group_000000", "inputs": {"clk": {"type": "pin"}, "reset": {"type": "pin"}, )"
           R"("load": {"type": "pin"}}, "outputs": {"busy": {"type": "pin", "initial": "0"}, )"
           R"("q": {"type": "bus", "initial": 0, "width": 4, "dataType": "uint64_t"}}, )"
           R"("variables": {"count": {"type": "int", "value": 0}}, "outputDelay": "10n"})";
}

} // namespace

std::string chartOfTransitions(std::size_t transitions)
{
    return chartText([=](std::size_t states, std::size_t) { return states * 2 >= transitions; });
}

std::string chartOfSize(std::size_t bytes)
{
    return chartText([=](std::size_t, std::size_t size) { return size >= bytes; });
}
