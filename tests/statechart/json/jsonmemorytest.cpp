// What values cost.

#include "allocationcounter.h"
#include "statechart/json/jsonreader.h"

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

TEST(JsonMemory, IsTakenOnceForMembersAndOnceForTheirIndex)
{
    JsonObject object;
    EXPECT_EQ(allocationsOf([&] {
                  object.reserve(8);
                  for (const char* key : {"a", "b", "c", "d", "e", "f", "g", "h"})
                      object.insert(key, 1);
              }),
              2u);
    EXPECT_EQ(object.size(), 8u);
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
