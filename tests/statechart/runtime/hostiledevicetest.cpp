// Compiled devices that were damaged on their way, or made to do harm: they link, or it is said why not.

#include "../examples.h"
#include "traceactor.h"

#include <gmock/gmock.h>

#include <random>

namespace {

/// The devices of the examples, as they are written to a file.
const std::vector<std::string>& compiledExamples()
{
    static const std::vector<std::string> devices = [] {
        std::vector<std::string> texts;
        for (const auto& definition : definitionsUnder("charts"))
            texts.push_back(toString(JsonValue(compiledDevice(readText(definition)))));
        return texts;
    }();
    return devices;
}

/// What reading and linking raise, in words; "" when the device links. Nothing else may be raised.
std::string failureOfLoad(const std::string& text)
{
    static const std::shared_ptr<CodeBuilder> builder = deviceCodeBuilder();
    try {
        linkDeviceStateChart(jsonOf(text).asObject(), builder);
        return {};
    } catch (const std::runtime_error& failure) {
        EXPECT_STRNE(failure.what(), "");
        return failure.what();
    } catch (const std::out_of_range& failure) {
        return failure.what();
    }
}

TEST(HostileDevice, OfTheExamplesLinks)
{
    ASSERT_FALSE(compiledExamples().empty());
    for (const std::string& device : compiledExamples())
        EXPECT_EQ(failureOfLoad(device), "");
}

TEST(HostileDevice, ThatIsCutOffAnywhereDoesNotLoad)
{
    for (const std::string& device : compiledExamples())
        for (std::size_t length = 0; length < device.size(); length += 7)
            ASSERT_NE(failureOfLoad(device.substr(0, length)), "") << length;
}

TEST(HostileDevice, WithFlippedBitsLinksOrSaysWhyNot)
{
    std::mt19937 random(20250601);
    int refused = 0;
    for (const std::string& device : compiledExamples()) {
        for (int flip = 0; flip < 300; ++flip) {
            std::string damaged = device;
            for (auto bits = 1 + random() % 3; bits > 0; --bits) {
                char& byte = damaged[random() % damaged.size()];
                byte = static_cast<char>(byte ^ (1 << random() % 8));
            }
            refused += failureOfLoad(damaged).empty() ? 0 : 1;
            ASSERT_FALSE(HasFailure()) << damaged;
        }
    }
    EXPECT_GT(refused, 300);
}

/// Calls `visit` with every value in a document.
template <class Visit>
void visitValues(JsonValue& value, const Visit& visit)
{
    visit(value);
    if (value.isArray()) {
        for (JsonValue& element : value.asArray())
            visitValues(element, visit);
    } else if (value.isObject()) {
        JsonObject& object = value.asObject();
        std::vector<std::string> keys;
        for (const JsonMember& member : object)
            keys.push_back(member.key);
        for (const std::string& key : keys)
            visitValues(*object.find(key), visit);
    }
}

TEST(HostileDevice, WithAnyValueOfAnotherTypeLinksOrSaysWhyNot)
{
    static const std::shared_ptr<CodeBuilder> builder = deviceCodeBuilder();
    const std::vector<JsonValue> strangers{
        JsonValue(),    JsonValue(true),        JsonValue(2147483647),  JsonValue(1.5),
        JsonValue("x"), JsonValue(JsonArray()), JsonValue(JsonObject())};
    int refused = 0;
    JsonValue device = jsonOf(compiledExamples().front());
    visitValues(device, [&](JsonValue& place) {
        if (&place == &device)
            return;
        const JsonValue whole = place;
        for (const JsonValue& stranger : strangers) {
            place = stranger;
            try {
                linkDeviceStateChart(device.asObject(), builder);
            } catch (const std::runtime_error&) {
                ++refused;
            } catch (const std::out_of_range&) {
                ++refused;
            }
        }
        place = whole;
    });
    EXPECT_GT(refused, 500);
}

TEST(HostileDevice, WithoutAnyMemberLinksOrSaysWhyNot)
{
    static const std::shared_ptr<CodeBuilder> builder = deviceCodeBuilder();
    int refused = 0;
    JsonValue device = jsonOf(compiledExamples().front());
    visitValues(device, [&](JsonValue& place) {
        if (!place.isObject())
            return;
        const JsonObject whole = place.asObject();
        for (const JsonMember& left : whole) {
            JsonObject others;
            for (const JsonMember& member : whole)
                if (member.key != left.key)
                    others.insert(member.key, member.value);
            place = std::move(others);
            try {
                linkDeviceStateChart(device.asObject(), builder);
            } catch (const std::runtime_error&) {
                ++refused;
            } catch (const std::out_of_range&) {
                ++refused;
            }
        }
        place = whole;
    });
    EXPECT_GT(refused, 50);
}

std::string deviceOfStates(std::string_view states, std::string_view transitions = "")
{
    return formatText(R"({{"nstates": 2147483647, "start": "a", "states": {{{}}}, "transitions": {{{}}},
        "inputBuses": {{}}, "inputPins": {{}}, "outputBuses": {{}}, "outputPins": {{}}, "variables": {{}},
        "parameters": {{}}}})",
                      states, transitions);
}

TEST(HostileDevice, CannotNameAStateAroundAnotherAsItsInitialOne)
{
    EXPECT_EQ(failureOfLoad(deviceOfStates(R"("a": {"type": "compound", "ntrans": 0, "initial": "b",
                  "substates": {"b": {"type": "compound", "ntrans": 0, "initial": "a", "substates": {
                      "c": {"type": "atomic", "ntrans": 0}}}}})")),
              "initial state not found: 'a'");
    EXPECT_EQ(failureOfLoad(deviceOfStates(
                  R"("a": {"type": "compound", "ntrans": 0, "initial": "a", "substates": {}})")),
              "initial state not found: 'a'");
}

TEST(HostileDevice, WithTransitionsInACircleLinksAndRuns)
{
    TraceActor actor(linkedText(
        deviceOfStates(R"("a": {"type": "atomic", "ntrans": 1}, "b": {"type": "atomic", "ntrans": 1})",
                       R"("t": {"src": "a", "tgt": "b", "order": 0, "local": false},
           "u": {"src": "b", "tgt": "a", "order": 0, "local": false})")));
    EXPECT_THROW(actor.begin(), EndlessRun);
    EXPECT_THAT(actor.active(), testing::IsEmpty()) << "the run ended on the way into a state";
}

TEST(HostileDevice, WithActionsNestedTooDeepIsRefused)
{
    std::string form = "1";
    for (int level = 0; level < 2100; ++level)
        form = R"({"rule":"unop","op":"-","type":"int","expr":)" + form + "}";
    EXPECT_EQ(
        failureOfLoad(deviceOfStates(R"("a": {"type": "atomic", "ntrans": 0, "onEntry": [{"variables": {},
                  "statements": [{"rule": "expr", "type": "int", "expr": )" +
                                     form + "}]}]}")),
        "compiled code is nested too deeply");
}

} // namespace
