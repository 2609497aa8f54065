#include "statechart/json/jsonlocator.h"

#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <sstream>

namespace {

std::string located(std::string_view document, const JsonPath& path)
{
    const JsonRange range = JsonLocator(document).locate(path).value;
    return std::string(document.substr(range.offset, range.length));
}

constexpr std::string_view document = R"( {
  "a": [1, "two", {"b": [true , null]} ],
  "key \"quoted\"" : { "x" : -1.5e3 },
  "a": "later",
  "empty": {}, "list": []
} )";

TEST(JsonLocator, FindsTheWholeDocument)
{
    EXPECT_EQ(located(document, {}), document.substr(1, document.size() - 2));
}

TEST(JsonLocator, FindsMembersAndElements)
{
    EXPECT_EQ(located(document, {"a"}), R"([1, "two", {"b": [true , null]} ])");
    EXPECT_EQ(located(document, {"a", 0u}), "1");
    EXPECT_EQ(located(document, {"a", 1u}), "\"two\"");
    EXPECT_EQ(located(document, {"a", 2u, "b", 0u}), "true");
    EXPECT_EQ(located(document, {"a", 2u, "b", 1u}), "null");
    EXPECT_EQ(located(document, {"empty"}), "{}");
    EXPECT_EQ(located(document, {"list"}), "[]");
}

TEST(JsonLocator, ComparesKeysAsTheyAreMeant)
{
    EXPECT_EQ(located(document, {"key \"quoted\"", "x"}), "-1.5e3");
}

TEST(JsonLocator, TakesTheFirstOfDuplicateKeys)
{
    EXPECT_EQ(located(document, {"a", 0u}), "1");
}

TEST(JsonLocator, TellsWhereTheKeyOfAMemberStands)
{
    const JsonLocation location = JsonLocator(document).locate({"key \"quoted\"", "x"});
    ASSERT_TRUE(location.key);
    EXPECT_EQ(document.substr(location.key->offset, location.key->length), "\"x\"");
    EXPECT_FALSE(JsonLocator(document).locate({}).key);
    EXPECT_FALSE(JsonLocator(document).locate({"a", 0u}).key);
}

TEST(JsonLocator, FallsBackToTheDeepestValueOnTheWay)
{
    EXPECT_EQ(located(document, {"a", 2u, "c", "d"}), R"({"b": [true , null]})");
    EXPECT_EQ(JsonLocator(document).locate({"a", 2u, "c", "d"}).matched, 2u);
    EXPECT_EQ(located(document, {"a", 3u}), R"([1, "two", {"b": [true , null]} ])");
    EXPECT_EQ(located(document, {"a", 0u, 0u}), "1");
    EXPECT_EQ(located(document, {"a", "b"}), R"([1, "two", {"b": [true , null]} ])");
    EXPECT_EQ(located(document, {"empty", 0u}), "{}");
    EXPECT_EQ(located(document, {"nothing"}), document.substr(1, document.size() - 2));
    EXPECT_EQ(JsonLocator(document).locate({"nothing"}).matched, 0u);
}

TEST(JsonLocator, KeepsTheKeyOfTheValueThatItFellBackTo)
{
    const JsonLocation location = JsonLocator(document).locate({"empty", "x"});
    ASSERT_TRUE(location.key);
    EXPECT_EQ(document.substr(location.key->offset, location.key->length), "\"empty\"");
}

TEST(JsonLocator, TakesNoStackForDepth)
{
    const std::size_t depth = 1000000;
    std::string deep = "{\"a\":";
    deep.append(depth, '[').append(depth, ']').append(", \"b\": 1}");
    EXPECT_EQ(located(deep, {"b"}), "1");
    EXPECT_EQ(JsonLocator(deep).locate(JsonPath{"a", 0u, 0u}).value.offset, 7u);
}

TEST(JsonLocator, FindsEachOfManyMembersAndElements)
{
    constexpr int count = 20000;
    std::string text = "{";
    for (int index = 0; index < count; ++index)
        text.append("\"")
            .append(std::to_string(index))
            .append("\": [0, ")
            .append(std::to_string(index))
            .append("],");
    text.back() = '}';
    JsonLocator locator(text);
    for (int index = 0; index < count; ++index) {
        const JsonRange range = locator.locate({std::to_string(index), 1u}).value;
        ASSERT_EQ(text.substr(range.offset, range.length), std::to_string(index));
    }
}

TEST(JsonLocator, FindsTheFirstOfKeysThatAreSpeltInSeveralWays)
{
    const std::string_view text = R"({"b/c": 1, "b\/c": 2, "b\/d": 3, "b\tc": 4, "": 5})";
    EXPECT_EQ(located(text, {"b/c"}), "1");
    EXPECT_EQ(located(text, {"b/d"}), "3");
    EXPECT_EQ(located(text, {"b\tc"}), "4");
    EXPECT_EQ(located(text, {""}), "5");
    EXPECT_EQ(JsonLocator(text).locate({"b\\/c"}).matched, 0u);
}

TEST(JsonLocator, TellsAnEscapedQuoteFromOneBehindAnEscapedBackslash)
{
    const std::string_view text = R"({"a\\": "\\\\", "\"b\\\"": ["\\", 1]})";
    EXPECT_EQ(located(text, {"a\\"}), R"("\\\\")");
    EXPECT_EQ(located(text, {"\"b\\\"", 0u}), R"("\\")");
    EXPECT_EQ(located(text, {"\"b\\\"", 1u}), "1");
}

TEST(JsonLocator, FindsValuesBehindLongArraysAndObjectsAndInThem)
{
    // Lists of every length around those over which it takes one step, with brackets in strings.
    std::string text = "[";
    std::vector<std::string> lists;
    for (std::size_t length = 0; length < 400; ++length) {
        std::string list = "[[";
        for (std::size_t index = 0; index < length; ++index)
            list += index % 3 == 0 ? "[]," : "\"]\",";
        lists.push_back(list + "7],{\"}\":[" + std::to_string(length) + "]}]");
        text += lists.back() + ",";
    }
    text.back() = ']';
    JsonLocator locator(text);
    const auto at = [&](const JsonPath& path) {
        const JsonRange range = locator.locate(path).value;
        return text.substr(range.offset, range.length);
    };
    for (std::size_t length = lists.size(); length-- > 0;) {
        EXPECT_EQ(at({length}), lists[length]);
        EXPECT_EQ(at({length, 0u, length}), "7");
        EXPECT_EQ(at({length, 1u, "}", 0u}), std::to_string(length));
        EXPECT_EQ(locator.locate({length, 0u, length + 1}).matched, 2u);
    }
}

TEST(JsonLocator, EndsOnATextThatNoReaderTakes)
{
    for (const char* text : {"[:]", "[::", "{:}", "{1}", "{\"a\"}", "{\"a\"", "{\"a\":}", "[}", "{]", "]",
                             ",", ":", "[\"", "{\"", "{\"a\":\"", "[1:2]", "{\"a\\"}) {
        const JsonLocation location = JsonLocator(text).locate({"a", 0u});
        EXPECT_LE(location.value.end(), std::string_view(text).size()) << text;
    }
}

TEST(JsonLocator, StaysWithinATextThatIsCutOffAnywhere)
{
    for (std::size_t length = 0; length <= document.size(); ++length) {
        const std::string_view cut = document.substr(0, length);
        for (const JsonPath& path : {JsonPath{}, JsonPath{"a", 2u, "b", 1u}, JsonPath{"key \"quoted\"", "x"},
                                     JsonPath{"list", 0u}}) {
            const JsonRange range = JsonLocator(cut).locate(path).value;
            ASSERT_LE(range.offset, cut.size());
            ASSERT_LE(range.end(), cut.size());
        }
    }
}

TEST(JsonLocator, TranslatesBytesOfADecodedString)
{
    const std::string_view text = R"(["a\n\"b\\c"])";
    const JsonRange string = JsonLocator(text).locate({0u}).value;
    const std::size_t expected[] = {2, 3, 5, 7, 8, 10};
    for (std::size_t index = 0; index < std::size(expected); ++index)
        EXPECT_EQ(JsonStringOffsets(text, string).offsetOf(index), expected[index]) << index;
}

TEST(JsonLocator, PutsBytesPastAStringOnItsClosingQuote)
{
    const std::string_view text = R"(["ab", "", 12])";
    EXPECT_EQ(JsonStringOffsets(text, JsonLocator(text).locate({0u}).value).offsetOf(2), 4u);
    EXPECT_EQ(JsonStringOffsets(text, JsonLocator(text).locate({0u}).value).offsetOf(99), 4u);
    EXPECT_EQ(JsonStringOffsets(text, JsonLocator(text).locate({1u}).value).offsetOf(0), 8u);
    EXPECT_EQ(JsonStringOffsets(text, JsonLocator(text).locate({2u}).value).offsetOf(1), 11u);
}

TEST(JsonLocator, AgreesWithTheReaderOnEveryValue)
{
    std::istringstream stream{std::string(document)};
    const JsonDocument whole = readDocument(stream);
    const auto same = [](const JsonPath& path, const JsonValue& value) {
        std::istringstream piece(std::string("[").append(located(document, path)).append("]"));
        EXPECT_EQ(readDocument(piece).value().element(0), value);
    };
    for (const JsonMember& member : asObject(whole)) {
        same({member.key}, member.value);
        if (!member.value.isArray())
            continue;
        for (std::size_t index = 0; index < member.value.asArray().size(); ++index)
            same({member.key, index}, member.value.element(index));
    }
}

} // namespace
