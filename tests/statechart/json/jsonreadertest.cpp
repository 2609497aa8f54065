#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <vector>

namespace {

JsonValue read(const std::string& text)
{
    std::istringstream stream(text);
    return readDocument(stream).value();
}

/// The one element of an array.
JsonValue readElement(const std::string& text)
{
    return read("[" + text + "]").element(0);
}

struct ReadFailure
{
    std::string text;
    std::string reason;
    std::uint64_t position;
};

void PrintTo(const ReadFailure& row, std::ostream* output)
{
    *output << row.text.substr(0, 30);
}

class JsonReaderFailures : public testing::TestWithParam<ReadFailure>
{};

TEST_P(JsonReaderFailures, NameReasonAndFirstByteNotConsumed)
{
    const ReadFailure& row = GetParam();
    try {
        read(row.text);
        FAIL() << "it was read";
    } catch (const JsonReadException& failure) {
        EXPECT_EQ(failure.reason(), row.reason);
        EXPECT_EQ(failure.position(), row.position);
        EXPECT_EQ(failure.what(),
                  "invalid JSON '" + row.reason + "' at position " + std::to_string(row.position));
    }
}

const std::vector<ReadFailure> failures{
    {"", "expected value", 0},
    {" \t\r\n", "expected value", 4},
    {"x", "expected value", 0},
    {"  ]", "expected value", 2},
    {"+1", "expected value", 0},
    {"[1,]", "expected value", 3},
    {"[1,", "expected value", 3},
    {"{\"a\":}", "expected value", 5},
    {"{\"a\":", "expected value", 5},
    {"{", "expected } or object definition", 1},
    {"{1:2}", "expected } or object definition", 1},
    {"{,}", "expected } or object definition", 1},
    {"{ a", "expected } or object definition", 2},
    {"{\"a\" 1}", "expected :", 5},
    {"{\"a\"", "expected :", 4},
    {"{\"a\":1 \"b\":2}", "expected ',' or '}'", 7},
    {"{\"a\":1", "expected ',' or '}'", 6},
    {"{\"a\":1]", "expected ',' or '}'", 6},
    {"{\"a\":1,}", "expected string opening \"", 7},
    {"{\"a\":1,", "expected string opening \"", 7},
    {"{\"a\":1, b", "expected string opening \"", 8},
    {"[", "expected ] or array definition", 1},
    {"[ ", "expected ] or array definition", 2},
    {"[,1]", "expected ] or array definition", 1},
    {"[}", "expected ] or array definition", 1},
    {"[1 2]", "expected ',' or ']'", 3},
    {"[1", "expected ',' or ']'", 2},
    {"[1}", "expected ',' or ']'", 2},
    {"[01]", "expected ',' or ']'", 2},
    {"[0x1]", "expected ',' or ']'", 2},
    {"[tru]", "expected 'true'", 4},
    {"[tRue]", "expected 'true'", 2},
    {"[t", "expected 'true'", 2},
    {"[fals]", "expected 'false'", 5},
    {"[f", "expected 'false'", 2},
    {"[nul]", "expected 'null'", 4},
    {"[nULL]", "expected 'null'", 2},
    {"[n", "expected 'null'", 2},
    {"[-]", "expected number 0-9", 2},
    {"[-", "expected number 0-9", 2},
    {"[-a]", "expected number 0-9", 2},
    {"[-.5]", "expected number 0-9", 2},
    {"[2147483648]", "invalid number", 11},
    {"[-2147483649]", "invalid number", 12},
    {"[2147483648e1 ]", "invalid number", 13},
    {"[1.0e999, 2]", "invalid number", 8},
    {"[\"abc", "unexpected end of string", 5},
    {"[\"abc\\", "unexpected end of string", 6},
    {"{\"abc", "unexpected end of string", 5},
    {"[\"\\u0041\"]", "unexepected escaped character", 3},
    {"[\"a\\x\"]", "unexepected escaped character", 4},
    {"[\"\\'\"]", "unexepected escaped character", 3},
    {"{\"\\u\":1}", "unexepected escaped character", 3},
    {std::string(jsonMaximumDepth + 1, '['), "nesting too deep", jsonMaximumDepth},
};
INSTANTIATE_TEST_SUITE_P(Rows, JsonReaderFailures, testing::ValuesIn(failures));

TEST(JsonReader, ReadsEveryKindOfValue)
{
    const JsonValue value =
        read("{\"array\": [1, 2], \"true\": true, \"false\": false, \"null\": null, \"int\": -7,"
             " \"double\": 0.5, \"object\": {}, \"string\": \"text\"}");
    EXPECT_EQ(value.member("array"), JsonValue(JsonArray{1, 2}));
    EXPECT_TRUE(value.member("true").asBool());
    EXPECT_FALSE(value.member("false").asBool());
    EXPECT_TRUE(value.member("null").isNull());
    EXPECT_EQ(value.member("int").asInt(), -7);
    EXPECT_EQ(value.member("double").asDouble(), 0.5);
    EXPECT_TRUE(value.member("object").asObject().empty());
    EXPECT_EQ(value.member("string").asString(), "text");
}

TEST(JsonReader, SkipsTabsLineEndsAndBlanksBetweenTokens)
{
    EXPECT_EQ(toString(read(" \t\r\n{ \"a\" \t:\r\n[ 1 , 2 ] , \"b\" : { } } \n")),
              "{\"a\": [1,2], \"b\": {}}");
}

TEST(JsonReader, ReadsIntegersToTheEndsOfTheirRange)
{
    EXPECT_EQ(readElement("2147483647").asInt(), 2147483647);
    EXPECT_EQ(readElement("-2147483648").asInt(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(readElement("-0").asInt(), 0);
    EXPECT_EQ(readElement("0").asInt(), 0);
}

TEST(JsonReader, ReadsATooLargeIntegerWithAPointAsADouble)
{
    EXPECT_EQ(readElement("2147483648.0").asDouble(), 2147483648.0);
}

TEST(JsonReader, ReadsAnExponentWithoutAPointAsTheIntegerInFrontOfIt)
{
    EXPECT_EQ(readElement("1e3").asInt(), 1);
    EXPECT_EQ(readElement("12E+45").asInt(), 12);
    EXPECT_EQ(readElement("-5e").asInt(), -5);
}

TEST(JsonReader, ReadsAnExponentBehindAPointAsADouble)
{
    EXPECT_EQ(readElement("1.5e3").asDouble(), 1500.0);
    EXPECT_EQ(readElement("1.5E-3").asDouble(), 0.0015);
    EXPECT_EQ(readElement("1.e-09").asDouble(), 1e-9);
}

TEST(JsonReader, NeedsNoDigitsBehindAPointOrAnExponent)
{
    EXPECT_EQ(readElement("1.").asDouble(), 1.0);
    EXPECT_EQ(readElement("1.5e").asDouble(), 1.5);
    EXPECT_EQ(readElement("1.5e+").asDouble(), 1.5);
}

TEST(JsonReader, DecodesEveryEscape)
{
    EXPECT_EQ(readElement(R"("\"\/\\\b\f\n\r\t")").asString(), "\"/\\\b\f\n\r\t");
}

TEST(JsonReader, CopiesRawBytesOfStrings)
{
    EXPECT_EQ(readElement("\"a\nb\t\xff\x01\"").asString(), "a\nb\t\xff\x01");
    EXPECT_EQ(readElement(std::string("\"\0\"", 3)).asString(), std::string(1, '\0'));
}

TEST(JsonReader, KeepsTheFirstOfDuplicateKeys)
{
    EXPECT_EQ(toString(read(R"({"a": 1, "b": 2, "a": 3})")), R"({"a": 1, "b": 2})");
    EXPECT_EQ(toString(read(R"({"a": [1], "a": {"a": [2], "a": [{"a": 3, "a": {}}], "b": 4}, "c": [5]})")),
              R"({"a": [1], "c": [5]})");
}

TEST(JsonReader, KeepsMembersInTheirOrder)
{
    std::string text = "{";
    for (int index = 100; index > 0; --index)
        text += "\"k" + std::to_string(index) + "\": " + std::to_string(index) + (index > 1 ? ", " : "}");
    EXPECT_EQ(toString(read(text)), text);
}

TEST(JsonReader, LeavesTextBehindTheDocumentUnread)
{
    std::istringstream stream("{\"a\": 1} trailing");
    EXPECT_EQ(toString(readDocument(stream).value()), "{\"a\": 1}");
    std::string rest;
    stream >> rest;
    EXPECT_EQ(rest, "trailing");
}

TEST(JsonReader, CountsPositionsFromTheStartOfTheStream)
{
    std::istringstream stream("12345[x");
    stream.seekg(5);
    try {
        readDocument(stream);
        FAIL() << "it was read";
    } catch (const JsonReadException& failure) {
        EXPECT_EQ(failure.position(), 6u);
    }
}

/// Hands out its text in pieces of this many bytes.
class PieceBuffer : public std::streambuf
{
public:
    PieceBuffer(std::string text, std::size_t piece) : m_text(std::move(text)), m_piece(piece) {}

protected:
    int_type underflow() override
    {
        char* const start = m_text.data() + m_given;
        m_given = std::min(m_given + m_piece, m_text.size());
        setg(start, start, m_text.data() + m_given);
        return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
    }

private:
    std::string m_text;
    std::size_t m_piece;
    std::size_t m_given = 0;
};

/// Has no bytes ready ever, as standard input has none when it shares its place with C.
class UnreadyBuffer : public std::streambuf
{
public:
    explicit UnreadyBuffer(std::string text) : m_text(std::move(text)) {}

protected:
    int_type underflow() override
    {
        return m_given == m_text.size() ? traits_type::eof() : traits_type::to_int_type(m_text[m_given]);
    }

    int_type uflow() override
    {
        const int_type next = underflow();
        m_given += m_given < m_text.size() ? 1 : 0;
        return next;
    }

private:
    std::string m_text;
    std::size_t m_given = 0;
};

TEST(JsonReader, ReadsTheSameHoweverAStreamHandsOutItsBytes)
{
    const std::string text = R"({"key": ["a\"b\\\\c", "", 12, -1.5e3, true, null], "long \n key": {}})";
    const JsonValue expected = read(text);
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        PieceBuffer buffer(text, piece);
        std::istream stream(&buffer);
        ASSERT_EQ(readDocument(stream).value(), expected) << piece;
    }
    UnreadyBuffer buffer(text);
    std::istream stream(&buffer);
    EXPECT_EQ(readDocument(stream).value(), expected);
}

TEST(JsonReader, CountsPositionsHoweverAStreamHandsOutItsBytes)
{
    const std::string text = R"(["abc\"def", "ghi)";
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        PieceBuffer buffer(text, piece);
        std::istream stream(&buffer);
        try {
            readDocument(stream);
            FAIL() << "it was read";
        } catch (const JsonReadException& failure) {
            ASSERT_EQ(failure.position(), text.size()) << piece;
        }
    }
}

/// What a piece of the reader says of a text that does not start as it must.
template <class Piece>
std::string reasonOf(const std::string& text, Piece piece)
{
    std::istringstream stream(text);
    JsonReader reader(stream);
    try {
        piece(reader);
        return {};
    } catch (const JsonReadException& failure) {
        EXPECT_EQ(failure.position(), 0u);
        return failure.reason();
    }
}

TEST(JsonReader, NamesWhatAValueOfOneKindStartsWith)
{
    for (const char* text : {"", "x", " "}) {
        EXPECT_EQ(reasonOf(text, [](JsonReader& reader) { reader.readObject(); }), "expected {");
        EXPECT_EQ(reasonOf(text, [](JsonReader& reader) { reader.readArray(); }), "expected [");
        EXPECT_EQ(reasonOf(text, [](JsonReader& reader) { reader.readBoolean(); }),
                  "expected 'true' or 'false'");
        EXPECT_EQ(reasonOf(text, [](JsonReader& reader) { reader.readString(); }),
                  "expected string opening \"");
        EXPECT_EQ(reasonOf(text, [](JsonReader& reader) { reader.readStringEnd(); }),
                  "expected closing string \"");
    }
    EXPECT_EQ(reasonOf("[]", [](JsonReader& reader) { reader.readObject(); }), "expected {");
    EXPECT_EQ(reasonOf("{}", [](JsonReader& reader) { reader.readArray(); }), "expected [");
}

TEST(JsonReader, ReadsValuesOfOneKind)
{
    std::istringstream stream(R"({"a": [1]}[{}]truefalse"text"")");
    JsonReader reader(stream);
    EXPECT_EQ(reader.readObject(), (JsonObject{{"a", JsonArray{1}}}));
    EXPECT_EQ(reader.readArray(), JsonArray{JsonObject()});
    EXPECT_TRUE(reader.readBoolean());
    EXPECT_FALSE(reader.readBoolean());
    EXPECT_EQ(reader.readString(), "text");
    EXPECT_NO_THROW(reader.readStringEnd());
}

TEST(JsonReader, ReadsNothingFromAStreamWithoutABuffer)
{
    std::istream stream(nullptr);
    EXPECT_THROW(readDocument(stream), JsonReadException);
}

TEST(JsonReader, TakesNestingUpToItsLimit)
{
    const auto depth = static_cast<std::size_t>(jsonMaximumDepth);
    const std::string arrays = std::string(depth, '[') + std::string(depth, ']');
    EXPECT_EQ(toString(read(arrays)), arrays);

    std::string objects;
    for (std::size_t level = 0; level < depth - 1; ++level)
        objects += "{\"a\": ";
    objects += "{}" + std::string(depth - 1, '}');
    EXPECT_EQ(toString(read(objects)), objects);
}

TEST(JsonReader, RefusesNestingInObjectsBeyondItsLimit)
{
    std::string objects;
    for (int level = 0; level <= jsonMaximumDepth; ++level)
        objects += "{\"a\":";
    try {
        read(objects);
        FAIL() << "it was read";
    } catch (const JsonReadException& failure) {
        EXPECT_EQ(failure.reason(), "nesting too deep");
    }
}

TEST(JsonDocument, IsAnArrayOrAnObjectAndNothingElse)
{
    for (const char* text : {"1", "\"a\"", "true", "null", "1.5"}) {
        try {
            read(text);
            FAIL() << text;
        } catch (const JsonReadException&) {
            FAIL() << text;
        } catch (const JsonException& failure) {
            EXPECT_STREQ(failure.what(), "invalid type for JSON document");
        }
    }
    EXPECT_NO_THROW(read("[]"));
    EXPECT_NO_THROW(read("{}"));
}

TEST(JsonDocument, HandsOutItsObjectOrItsArray)
{
    const JsonDocument object(JsonValue(JsonObject{{"a", 1}}));
    const JsonDocument array(JsonValue(JsonArray{1}));
    EXPECT_EQ(asObject(object).size(), 1u);
    EXPECT_EQ(asArray(array).size(), 1u);
    EXPECT_THAT([&] { asObject(array); },
                testing::ThrowsMessage<JsonException>("JSON document is not an object"));
    EXPECT_THAT([&] { asArray(object); },
                testing::ThrowsMessage<JsonException>("JSON document is not an array"));
}

struct LineCase
{
    std::string text;
    std::uint64_t line;
    std::uint64_t character;
};

void PrintTo(const LineCase& row, std::ostream* output)
{
    *output << row.line << ':' << row.character;
}

class JsonLineNumbers : public testing::TestWithParam<LineCase>
{};

TEST_P(JsonLineNumbers, CountFromOneInBytes)
{
    const LineCase& row = GetParam();
    std::istringstream stream(row.text);
    try {
        readDocument(stream);
        FAIL() << "it was read";
    } catch (const JsonReadException& failure) {
        const JsonLineNumberReadException placed(failure, stream);
        EXPECT_EQ(placed.line(), row.line);
        EXPECT_EQ(placed.character(), row.character);
        EXPECT_EQ(placed.reason(), failure.reason());
        EXPECT_EQ(placed.position(), failure.position());
        EXPECT_EQ(placed.what(), "invalid JSON '" + failure.reason() + "' at line " +
                                     std::to_string(row.line) + " character " +
                                     std::to_string(row.character));
    }
}

const std::vector<LineCase> lineCases{
    {"", 1, 1},
    {"x", 1, 1},
    {"[1,\n  x]", 2, 3},
    {"[1,\r  x]", 2, 3},
    {"[1,\r\n  x]", 2, 3},
    {"[1,\n\r  x]", 3, 3},
    {"[1,\r\r\n\n\nx]", 5, 1},
    {"[\n", 2, 1},
    {"[\"\xc3\xa9\", x]", 1, 8},
    {"[\"a\nb\", x]", 2, 5},
};
INSTANTIATE_TEST_SUITE_P(Rows, JsonLineNumbers, testing::ValuesIn(lineCases));

} // namespace

TEST(JsonReader, TakesAsManyValuesAsItsLimit)
{
    const std::string text = R"([1, {"a": [], "a": null}, "x"])"; // six, the array around them among them
    std::istringstream fitting(text);
    EXPECT_EQ(JsonReader(fitting, 6).readValue().element(2).asString(), "x");
    std::istringstream stream(text);
    try {
        JsonReader(stream, 5).readValue();
        FAIL() << "it was read";
    } catch (const JsonReadException& failure) {
        EXPECT_EQ(failure.reason(), "too many values");
        EXPECT_EQ(failure.position(), text.find("\"x\""));
    }
}

TEST(JsonReader, ReadsLargeArraysWhereverTheyStand)
{
    std::string row = "[0";
    for (int index = 1; index < 100000; ++index)
        row += ",1";
    row += ']';
    for (const std::string& text : {row, '[' + row + ',' + row + ']', "{\"a\": [" + row + ",2]}"})
        EXPECT_TRUE(toString(read(text)) == text);
}
