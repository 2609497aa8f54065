// What values cost.

#include "statechart/json/jsonlocator.h"
#include "statechart/json/jsonreader.h"
#include "support/allocations/allocationcounter.h"

#include <sstream>
#include <utility>

namespace {

template <class Action>
std::size_t allocationsOf(Action action)
{
    const std::size_t before = allocationCount();
    action();
    return allocationCount() - before;
}

TEST(JsonMemory, IsNotTakenByEmptyContainers)
{
    EXPECT_EQ(allocationsOf([] {
                  JsonValue object{JsonObject()};
                  object.reserve(0);
                  JsonValue array{JsonArray()};
                  array.reserve(0);
                  const JsonValue objectCopy = object;
                  const JsonValue arrayCopy = array;
                  const JsonValue moved = std::move(object);
                  const JsonObject listed{};
                  EXPECT_FALSE(listed.contains("a"));
              }),
              0u);
    EXPECT_GT(allocationsOf([] { JsonObject{{"a", 1}}; }), 0u);
}

TEST(JsonMemory, IsNotTakenByEmptyContainersThatAreRead)
{
    constexpr std::size_t count = 1000;
    std::string text = "[{}";
    for (std::size_t index = 1; index < count; ++index)
        text += index % 2 == 0 ? ",{}" : ",[]";
    std::istringstream input(text + "]");
    EXPECT_LT(allocationsOf([&] { EXPECT_EQ(asArray(readDocument(input)).size(), count); }), 30u);
}

TEST(JsonMemory, IsFortyBytesForAValueAndNoneForShortText)
{
    EXPECT_EQ(sizeof(JsonValue), 40u);
    EXPECT_EQ(allocationsOf([] { const JsonValue value("fifteen letters"); }), 0u);
}

TEST(JsonMemory, IsTakenForAnIndexOnlyBeyondEightMembers)
{
    for (const std::size_t count : {8u, 9u}) {
        JsonObject object;
        EXPECT_EQ(allocationsOf([&] {
                      object.reserve(count);
                      for (std::size_t index = 0; index < count; ++index)
                          object.insert(std::string(1, static_cast<char>('a' + index)), 1);
                  }),
                  count > 8 ? 3u : 1u);
        EXPECT_EQ(object.size(), count);
    }
}

TEST(JsonMemory, IsTakenByALocatorForLessThanTheTextHoweverItNests)
{
    constexpr std::size_t count = 200000;
    std::string flat = "{\"a\":[[]";
    for (std::size_t index = 1; index < count; ++index)
        flat += ",[]";
    flat += "],\"b\":1}";
    std::string deep = "{\"a\":";
    deep.append(count, '[').append(count, ']').append(",\"b\":1}");
    for (const std::string& text : {flat, deep}) {
        // The deep one is gone through with a record for each open array, which is given back.
        const std::size_t most = text == deep ? 100 * text.size() : text.size() / 2;
        const std::size_t before = allocatedBytes();
        JsonLocator locator(text);
        EXPECT_EQ(locator.locate({"b"}).value.offset, text.size() - 2);
        EXPECT_EQ(locator.locate({"a", text == flat ? count - 1 : 0u}).matched, 2u);
        EXPECT_LT(allocatedBytes() - before, most);
    }
}

TEST(JsonMemory, IsHandedOnByADocumentThatIsNotNeededAnyMore)
{
    const std::string text(100, 'x');
    JsonDocument object(JsonValue(JsonObject{{"a", JsonArray{text}}}));
    JsonDocument array(JsonValue(JsonArray{JsonArray{text}}));
    JsonDocument whole(JsonValue(JsonArray{JsonArray{text}}));
    JsonObject takenObject;
    JsonArray takenArray;
    JsonValue takenWhole;
    EXPECT_EQ(allocationsOf([&] {
                  takenObject = asObject(std::move(object));
                  takenArray = asArray(std::move(array));
                  takenWhole = std::move(whole).value();
              }),
              0u);
    EXPECT_EQ(takenObject.at("a").element(0).asString(), text);
    EXPECT_EQ(takenArray.front().element(0).asString(), text);
    EXPECT_EQ(takenWhole.element(0).element(0).asString(), text);
}

} // namespace
