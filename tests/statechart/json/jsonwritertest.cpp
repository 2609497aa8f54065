#include "statechart/json/jsonwriter.h"
#include "statechart/json/jsonreader.h"

#include <limits>
#include <ostream>
#include <random>
#include <sstream>
#include <vector>

namespace {

struct WriteCase
{
    JsonValue value;
    std::string text;
};

void PrintTo(const WriteCase& row, std::ostream* output)
{
    *output << row.text.size() << " bytes";
}

class JsonWriterTable : public testing::TestWithParam<WriteCase>
{};

TEST_P(JsonWriterTable, WritesOnOneLine)
{
    EXPECT_EQ(toString(GetParam().value), GetParam().text);
}

const std::vector<WriteCase> writeCases{
    {JsonValue(), "null"},
    {true, "true"},
    {false, "false"},
    {0, "0"},
    {-2147483647 - 1, "-2147483648"},
    {1.0, "1.0"},
    {1.5, "1.5"},
    {-0.0, "-0.0"},
    {100000.0, "1.e+05"},
    {1e-9, "1.e-09"},
    {1.25e-9, "1.25e-09"},
    {"", "\"\""},
    {"text", "\"text\""},
    {"\"\\/\b\f\n\r\t", R"("\"\\\/\b\f\n\r\t")"},
    {std::string("\0\x01\x7f\xff", 4), std::string("\"\0\x01\x7f\xff\"", 6)},
    {JsonArray(), "[]"},
    {JsonArray{1}, "[1]"},
    {JsonArray{1, "a", JsonArray{true, JsonValue()}}, "[1,\"a\",[true,null]]"},
    {JsonObject(), "{}"},
    {JsonObject{{"a", 1}}, "{\"a\": 1}"},
    {JsonObject{{"a", 1}, {"b", JsonObject{{"c", JsonArray{2}}}}, {"d", "e"}},
     "{\"a\": 1, \"b\": {\"c\": [2]}, \"d\": \"e\"}"},
    {JsonObject{{"a\"/\n", 1}}, "{\"a\"/\n\": 1}"},
};
INSTANTIATE_TEST_SUITE_P(Rows, JsonWriterTable, testing::ValuesIn(writeCases));

TEST(JsonWriter, WritesTheSameToAStream)
{
    const JsonValue value(JsonObject{{"a", JsonArray{1, 2.0}}});
    std::ostringstream stream;
    write(stream, value);
    EXPECT_EQ(stream.str(), toString(value));
}

TEST(JsonWriter, RefusesANumberOfAnotherKind)
{
    const JsonValue value(JsonArray{JsonNumber::ofKind(static_cast<JsonNumber::Kind>(2))});
    EXPECT_THAT([&] { toString(value); }, testing::ThrowsMessage<JsonException>("invalid number type"));
}

TEST(JsonWriter, RefusesAValueOfAnUnknownType)
{
    EXPECT_THAT([] { toString(JsonValue::withoutType()); },
                testing::ThrowsMessage<JsonException>("unknown JSON type"));
}

TEST(JsonWriter, WritesADoubleSoThatItReadsBackAsADouble)
{
    std::istringstream stream(toString(JsonArray{1.0, 1e300, 100000.0}));
    EXPECT_EQ(readDocument(stream).value(), JsonValue(JsonArray{1.0, 1e300, 100000.0}));
}

/// Values of every kind, nested at random.
class RandomValues
{
public:
    explicit RandomValues(unsigned seed) : m_random(seed) {}

    JsonValue document(int depth)
    {
        return pick(2) == 0 ? JsonValue(array(depth)) : JsonValue(object(depth));
    }

private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }

    JsonValue value(int depth)
    {
        switch (pick(depth > 0 ? 7 : 5)) {
        case 0:
            return JsonValue();
        case 1:
            return pick(2) == 0;
        case 2:
            return std::uniform_int_distribution<std::int32_t>(
                std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max())(m_random);
        case 3:
            return real();
        case 4:
            return text(true);
        case 5:
            return array(depth - 1);
        default:
            return object(depth - 1);
        }
    }

    double real()
    {
        const double mantissa = std::uniform_real_distribution<double>(-1.0, 1.0)(m_random);
        return std::ldexp(mantissa, pick(600) - 300);
    }

    std::string text(bool anyByte)
    {
        std::string result;
        for (int length = pick(12); length > 0; --length)
            result += static_cast<char>(anyByte ? pick(256) : 'a' + pick(26));
        return result;
    }

    JsonArray array(int depth)
    {
        JsonArray result;
        for (int length = pick(6); length > 0; --length)
            result.push_back(value(depth));
        return result;
    }

    JsonObject object(int depth)
    {
        JsonObject result;
        for (int length = pick(20); length > 0; --length)
            result.insert(text(false), value(depth)); // keys are written without escapes
        return result;
    }

    std::mt19937 m_random;
};

TEST(JsonWriter, WritesWhatReadsBackAsTheSameValue)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        const JsonValue value = RandomValues(seed).document(4);
        const std::string text = toString(value);
        std::istringstream stream(text);
        const JsonValue readBack = readDocument(stream).value();
        ASSERT_EQ(readBack, value) << "seed " << seed;
        ASSERT_EQ(toString(readBack), text) << "seed " << seed;
    }
}

} // namespace
