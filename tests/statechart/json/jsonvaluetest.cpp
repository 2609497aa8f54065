#include "statechart/json/jsonvalue.h"

#include "statechart/json/jsonwriter.h"

#include <utility>

namespace {

using testing::ThrowsMessage;

JsonValue nested(int depth)
{
    JsonValue value(JsonArray{1});
    for (int level = 0; level < depth; ++level) {
        if (level % 2 == 0) {
            JsonObject object{{"a", 1}};
            object.insert("b", std::move(value));
            value = JsonValue(std::move(object));
        } else {
            JsonArray array;
            array.push_back(std::move(value));
            value = JsonValue(std::move(array));
        }
    }
    return value;
}

TEST(JsonValue, ReportsItsTypeByNumber)
{
    EXPECT_EQ(static_cast<int>(JsonValue(JsonArray()).type()), 0);
    EXPECT_EQ(static_cast<int>(JsonValue(true).type()), 1);
    EXPECT_EQ(static_cast<int>(JsonValue().type()), 2);
    EXPECT_EQ(static_cast<int>(JsonValue(1).type()), 3);
    EXPECT_EQ(static_cast<int>(JsonValue(JsonObject()).type()), 4);
    EXPECT_EQ(static_cast<int>(JsonValue("").type()), 5);
}

TEST(JsonValue, NumbersItsKindsOfNumber)
{
    EXPECT_EQ(static_cast<int>(JsonValue(1).asNumber().kind()), 0);
    EXPECT_EQ(static_cast<int>(JsonValue(1.0).asNumber().kind()), 1);
}

TEST(JsonValue, KnowsWhatItIs)
{
    EXPECT_TRUE(JsonValue("a").isString());
    EXPECT_TRUE(JsonValue(JsonArray()).isArray());
    EXPECT_TRUE(JsonValue(JsonObject()).isObject());
    EXPECT_TRUE(JsonValue(false).isBool());
    EXPECT_TRUE(JsonValue().isNull());
    EXPECT_TRUE(JsonValue(1).isNumber());
    EXPECT_TRUE(JsonValue(1).isInt());
    EXPECT_FALSE(JsonValue(1).isDouble());
    EXPECT_TRUE(JsonValue(1.0).isNumber());
    EXPECT_TRUE(JsonValue(1.0).isDouble());
    EXPECT_FALSE(JsonValue(1.0).isInt());
    EXPECT_FALSE(JsonValue("1").isNumber());
}

TEST(JsonValue, RefusesToBeReadAsAnotherKind)
{
    const JsonValue value;
    JsonValue changeable;
    EXPECT_THAT([&] { value.asString(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asObject(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { changeable.asObject(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asArray(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { changeable.asArray(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asBool(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asInt(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asDouble(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([&] { value.asNumber(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
}

TEST(JsonValue, DoesNotReadAnIntegerAsADoubleNorTheOtherWayRound)
{
    EXPECT_THAT([] { JsonValue(1).asDouble(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
    EXPECT_THAT([] { JsonValue(1.0).asInt(); }, ThrowsMessage<JsonTypeException>("invalid cast"));
}

TEST(JsonValue, FindsMembersOfAnObjectOnly)
{
    const JsonValue object(JsonObject{{"a", 1}});
    EXPECT_TRUE(object.has("a"));
    EXPECT_FALSE(object.has("A"));
    EXPECT_FALSE(JsonValue(1).has("a"));
    EXPECT_EQ(object.member("a").asInt(), 1);
    EXPECT_THAT([&] { object.member("b"); }, ThrowsMessage<JsonTypeException>("invalid key"));
    EXPECT_THAT([] { JsonValue(1).member("a"); },
                ThrowsMessage<JsonTypeException>("json value is not an object"));
}

TEST(JsonValue, FindsElementsOfAnArrayOnly)
{
    const JsonValue array(JsonArray{1, 2});
    EXPECT_EQ(array.element(1).asInt(), 2);
    EXPECT_THAT([&] { array.element(2); }, ThrowsMessage<JsonTypeException>("index out of bounds"));
    EXPECT_THAT([] { JsonValue(1).element(0); },
                ThrowsMessage<JsonTypeException>("json value is not an array"));
}

TEST(JsonValue, EqualsATextOnlyAsAString)
{
    EXPECT_TRUE(JsonValue("a").equals("a"));
    EXPECT_FALSE(JsonValue("a").equals("b"));
    EXPECT_FALSE(JsonValue(1).equals("1"));
}

TEST(JsonValue, EqualsANumberOnlyAsAnInteger)
{
    EXPECT_TRUE(JsonValue(1).equals(1));
    EXPECT_FALSE(JsonValue(1).equals(2));
    EXPECT_FALSE(JsonValue(1.0).equals(1));
    EXPECT_FALSE(JsonValue("1").equals(1));
}

TEST(JsonValue, ReservesRoomInContainersOnly)
{
    JsonValue array{JsonArray()};
    array.reserve(10);
    EXPECT_GE(array.asArray().capacity(), 10u);
    JsonValue object{JsonObject()};
    EXPECT_NO_THROW(object.reserve(10));
    EXPECT_THAT([] { JsonValue(1).reserve(10); }, ThrowsMessage<JsonTypeException>("invalid cast"));
}

TEST(JsonValue, ComparesByKindAndContent)
{
    EXPECT_EQ(JsonValue(), JsonValue());
    EXPECT_EQ(JsonValue(true), JsonValue(true));
    EXPECT_NE(JsonValue(true), JsonValue(false));
    EXPECT_NE(JsonValue(1), JsonValue(1.0));
    EXPECT_NE(JsonValue(1), JsonValue(2));
    EXPECT_NE(JsonValue(1.0), JsonValue(2.0));
    EXPECT_NE(JsonValue("a"), JsonValue("b"));
    EXPECT_NE(JsonValue(JsonArray{1}), JsonValue(JsonArray{1, 2}));
    EXPECT_NE(JsonValue(JsonArray{1}), JsonValue(JsonArray{2}));
    EXPECT_EQ(JsonValue::withoutType(), JsonValue::withoutType());
    EXPECT_NE(JsonValue::withoutType(), JsonValue());
}

TEST(JsonValue, KeepsItsContentWhenItBecomesAPartOfItself)
{
    JsonValue value(JsonObject{{"a", JsonArray{1, JsonObject{{"b", 2}}}}});
    value = std::move(*value.asObject().find("a"));
    EXPECT_EQ(value, JsonValue(JsonArray{1, JsonObject{{"b", 2}}}));
    value = value.element(1);
    EXPECT_EQ(value, JsonValue(JsonObject{{"b", 2}}));
}

TEST(JsonValue, CopiesAreApartFromTheirOriginal)
{
    const JsonValue original(JsonObject{{"a", JsonArray{JsonObject{{"b", 1}}}}, {"c", "d"}});
    JsonValue copy = original;
    EXPECT_EQ(copy, original);
    copy.asObject().find("a")->asArray().clear();
    copy.asObject().set("e", 2);
    EXPECT_EQ(original, JsonValue(JsonObject{{"a", JsonArray{JsonObject{{"b", 1}}}}, {"c", "d"}}));
    EXPECT_EQ(copy, JsonValue(JsonObject{{"a", JsonArray()}, {"c", "d"}, {"e", 2}}));
}

TEST(JsonValue, CopiesComparesAndEndsAtAnyDepth)
{
    const JsonValue deep = nested(200000);
    JsonValue copy = deep;
    EXPECT_TRUE(copy == deep);
    copy = JsonValue();
    copy = deep;
    EXPECT_FALSE(copy == nested(199999));
}

TEST(JsonObject, KeepsTheFirstOfEqualKeys)
{
    JsonObject object;
    EXPECT_TRUE(object.insert("a", 1));
    EXPECT_FALSE(object.insert("a", 2));
    EXPECT_EQ(object.at("a").asInt(), 1);
    EXPECT_EQ((JsonObject{{"a", 1}, {"a", 2}}).at("a").asInt(), 1);
}

TEST(JsonObject, TakesMembersInTurnUnlessTheyAreThere)
{
    for (const std::size_t count : {1u, 5u, 8u, 9u, 100u}) {
        JsonObject object{{"k", "first"}};
        JsonObject expected{{"k", "first"}};
        std::vector<JsonMember> members;
        for (std::size_t index = 0; index < count; ++index) {
            const std::string key(1 + index / 2, 'k');
            members.push_back({key, static_cast<std::int32_t>(index)});
            expected.insert(key, static_cast<std::int32_t>(index));
        }
        object.insertAll(members.data(), members.data() + members.size());
        EXPECT_EQ(toString(object), toString(expected)) << count;
    }
}

TEST(JsonObject, FindsItsMembersAfterItMadeRoom)
{
    for (std::size_t members = 0; members < 20; ++members) {
        JsonObject object;
        for (std::size_t index = 0; index < members; ++index)
            object.insert(std::string(index + 1, 'k'), 1);
        object.reserve(members + 40);
        object.insert("more", 1);
        for (std::size_t index = 0; index < members; ++index)
            ASSERT_TRUE(object.contains(std::string(index + 1, 'k'))) << members;
        EXPECT_TRUE(object.contains("more"));
    }
}

TEST(JsonObject, SetsAMemberInItsOldPlace)
{
    JsonObject object{{"a", 1}, {"b", 2}};
    object.set("a", 3);
    EXPECT_EQ(object.begin()->key, "a");
    EXPECT_EQ(object.at("a").asInt(), 3);
    object.set("c", 4);
    EXPECT_EQ(object.size(), 3u);
}

TEST(JsonObject, FindsEveryMemberOfMany)
{
    JsonObject object;
    object.reserve(10);
    for (int index = 0; index < 5000; ++index)
        ASSERT_TRUE(object.insert("key" + std::to_string(index), index));
    int expected = 0;
    for (const JsonMember& member : object) {
        ASSERT_EQ(member.value.asInt(), expected);
        ASSERT_EQ(object.at("key" + std::to_string(expected)).asInt(), expected);
        ++expected;
    }
    EXPECT_EQ(object.find("key5000"), nullptr);
}

TEST(JsonObject, IsEmptyAndUsableAfterItWasMoved)
{
    JsonObject object{{"a", 1}, {"b", 2}};
    const JsonObject taken = std::move(object);
    EXPECT_EQ(taken.size(), 2u);
    EXPECT_TRUE(object.empty()); // NOLINT(bugprone-use-after-move): that is what is looked at
    EXPECT_EQ(object.begin(), object.end());
    EXPECT_FALSE(object.contains("a"));
    EXPECT_TRUE(object.insert("a", 2));
    EXPECT_EQ(object.at("a").asInt(), 2);
}

TEST(JsonObject, ComparesWithoutRegardToOrder)
{
    EXPECT_EQ((JsonObject{{"a", 1}, {"b", 2}}), (JsonObject{{"b", 2}, {"a", 1}}));
    EXPECT_FALSE((JsonObject{{"a", 1}}) == (JsonObject{{"b", 1}}));
    EXPECT_FALSE((JsonObject{{"a", 1}}) == (JsonObject{{"a", 1}, {"b", 1}}));
    EXPECT_FALSE((JsonObject{{"a", 1}}) == (JsonObject{{"a", 2}}));
}

TEST(JsonTypeException, WordsEveryCode)
{
    using Code = JsonTypeException::Code;
    EXPECT_STREQ(JsonTypeException(Code::indexOutOfBounds).what(), "index out of bounds");
    EXPECT_STREQ(JsonTypeException(Code::invalidCast).what(), "invalid cast");
    EXPECT_STREQ(JsonTypeException(Code::invalidKey).what(), "invalid key");
    EXPECT_STREQ(JsonTypeException(Code::notAnArray).what(), "json value is not an array");
    EXPECT_STREQ(JsonTypeException(Code::notAnObject).what(), "json value is not an object");
    EXPECT_STREQ(JsonTypeException(static_cast<Code>(5)).what(), "unknown error");
}

} // namespace
