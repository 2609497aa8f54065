#include "lintcase.h"
#include "support/allocations/allocationcounter.h"
#include "support/concatenated.h"

namespace {

/// A state of this name around many texts, states and transitions with nothing to say of.
std::string deviceInside(const std::string& name)
{
    std::string texts;
    std::string transitions;
    std::string states;
    for (int i = 0; i < 500; ++i) {
        const std::string number = std::to_string(i);
        texts.append(R"("print(\"a\");",)");
        transitions.append(concatenated({i == 0 ? "" : ",", "\"t", number, R"x(": {"target": "s)x", number,
                                         R"x(", "order": 0, "event": "change",
                                         "conditions": ["isPinHigh(\"x\")", "isPinHigh(\"x\")"]})x"}));
        states.append(concatenated({",\"s", number, R"(": {"type": "atomic"})"}));
    }
    return concatenated({R"({"inputs": {"x": {"type": "pin"}}, "outputs": {}, "outputDelay": 1, "start": ")",
                         name, R"(", "states": {")", name,
                         R"(": {"type": "compound", "initial": "b", "substates": {
                             "b": {"type": "atomic", "onEntry": [)",
                         texts, R"("print(\"b\");"], "transitions": {)", transitions, "}}", states, "}}}}"});
}

TEST(LongNames, AreNotKeptAgainForEachTextStateAndTransitionInside)
{
    const auto bytesFor = [](const std::string& name) {
        const std::string definition = deviceInside(name);
        const std::size_t before = allocatedBytes();
        EXPECT_EQ(textsOf(checkDefinition(definition)), "");
        return allocatedBytes() - before;
    };
    const std::size_t length = 100'000;
    const std::size_t withShortName = bytesFor("a");
    EXPECT_LE(bytesFor(std::string(length, 'n')), withShortName + 50 * length);
}

} // namespace
