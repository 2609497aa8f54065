#include "statechart/text/format.h"

#include "support/commalocale.h"

#include <cmath>
#include <limits>
#include <optional>
#include <ostream>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// One field: the format text, the value, and the text that comes out; without one the format is refused.
struct FormatCase
{
    const char* format;
    FormatArgument value;
    std::optional<std::string> expected;
};

void PrintTo(const FormatCase& row, std::ostream* output)
{
    *output << row.format << " -> " << row.expected.value_or("(refused)");
}

constexpr std::nullopt_t refused = std::nullopt;

class FormatTable : public testing::TestWithParam<FormatCase>
{};

TEST_P(FormatTable, WordsAFieldAsTheStandardDoes)
{
    const FormatCase& row = GetParam();
    if (row.expected)
        EXPECT_EQ(formatText(row.format, row.value), *row.expected);
    else
        EXPECT_THROW(formatText(row.format, row.value), FormatException);
}

const std::vector<FormatCase> doubles{
    {"{}", 100000.0, "1e+05"},
    {"{}", 1.0, "1"},
    {"{}", 1e-9, "1e-09"},
    {"{}", 0.1, "0.1"},
    {"{}", 123456.0, "123456"},
    {"{}", 0.0, "0"},
    {"{}", -0.0, "-0"},
    {"{}", 1.5e300, "1.5e+300"},
    {"{}", infinity, "inf"},
    {"{}", -infinity, "-inf"},
    {"{}", notANumber, "nan"},
    {"{}", 4.9406564584124654e-324, "5e-324"},
    {"{}", 1.7976931348623157e308, "1.7976931348623157e+308"},
    {"{:#}", 1e-9, "1.e-09"},
    {"{:#}", 100000.0, "1.e+05"},
    {"{:#}", 1.0, "1."},
    {"{:#}", 1.5, "1.5"},
    {"{:#}", infinity, "inf"},
    {"{:#}", notANumber, "nan"},
    {"{:+}", 1.0, "+1"},
    {"{: }", 1.0, " 1"},
    {"{:-}", 1.0, "1"},
    {"{:+}", -1.0, "-1"},
    {"{:+}", infinity, "+inf"},
    {"{:a}", 1.0, "1p+0"},
    {"{:a}", 10.5, "1.5p+3"},
    {"{:A}", 10.75, "1.58P+3"},
    {"{:#a}", 1.0, "1.p+0"},
    {"{:.3a}", 1.0, "1.000p+0"},
    {"{:a}", -2.0, "-1p+1"},
    {"{:e}", 1.0, "1.000000e+00"},
    {"{:E}", 12345.678, "1.234568E+04"},
    {"{:.0e}", 1.0, "1e+00"},
    {"{:#.0e}", 1.0, "1.e+00"},
    {"{:f}", 1.0, "1.000000"},
    {"{:.2f}", 3.14159, "3.14"},
    {"{:.0f}", 2.5, "2"},
    {"{:#.0f}", 2.5, "2."},
    {"{:F}", infinity, "INF"},
    {"{:f}", notANumber, "nan"},
    {"{:G}", notANumber, "NAN"},
    {"{:.1f}", 1e22, "10000000000000000000000.0"},
    {"{:g}", 100000.0, "100000"},
    {"{:g}", 1000000.0, "1e+06"},
    {"{:G}", 1000000.0, "1E+06"},
    {"{:#g}", 1.0, "1.00000"},
    {"{:#g}", 0.0, "0.00000"},
    {"{:#g}", 0.001, "0.00100000"},
    {"{:#g}", 1000000.0, "1.00000e+06"},
    {"{:#.0g}", 1.0, "1."},
    {"{:.3g}", 1234.5, "1.23e+03"},
    {"{:.3}", 1234.5, "1.23e+03"},
    {"{:#.3}", 1.0, "1."},
    {"{:.10}", 0.1, "0.1"},
    {"{:.17g}", 0.1, "0.10000000000000001"},
    {"{:8}", 1.5, "     1.5"},
    {"{:<8}", 1.5, "1.5     "},
    {"{:^8}", 1.5, "  1.5   "},
    {"{:*^9}", 1.5, "***1.5***"},
    {"{:08}", -1.5, "-00001.5"},
    {"{:+08.2f}", 3.14159, "+0003.14"},
    {"{:<08}", 1.5, "1.5     "},
    {"{:08}", infinity, "     inf"},
    {"{:08}", -notANumber, "    -nan"},
    {"{:L}", 1234567.5, "1234567.5"},
    {"{:.1Lf}", 1234567.5, "1234567.5"},
    {"{:x}", 1.0, refused},
    {"{:d}", 1.0, refused},
    {"{:s}", 1.0, refused},
    {"{:.}", 1.0, refused},
    {"{:%}", 1.0, refused},
};
INSTANTIATE_TEST_SUITE_P(Doubles, FormatTable, testing::ValuesIn(doubles));

const std::vector<FormatCase> integers{
    {"{}", 42, "42"},
    {"{}", -42, "-42"},
    {"{}", std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
    {"{}", std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"},
    {"{:d}", 42, "42"},
    {"{:b}", 5, "101"},
    {"{:#b}", 5, "0b101"},
    {"{:#B}", 5, "0B101"},
    {"{:o}", 8, "10"},
    {"{:#o}", 8, "010"},
    {"{:#o}", 0, "0"},
    {"{:x}", 255, "ff"},
    {"{:X}", 255, "FF"},
    {"{:#x}", 255, "0xff"},
    {"{:#X}", 255, "0XFF"},
    {"{:#x}", -255, "-0xff"},
    {"{:b}", std::numeric_limits<std::uint64_t>::max(), std::string(64, '1')},
    {"{:+}", 1, "+1"},
    {"{: d}", 1, " 1"},
    {"{:#}", 1, "1"},
    {"{:5}", 42, "   42"},
    {"{:<5}|", 42, "42   |"},
    {"{:^5}", 42, " 42  "},
    {"{:05}", -42, "-0042"},
    {"{:#06x}", 255, "0x00ff"},
    {"{:>05}", 42, "   42"},
    {"{:0}", 42, "42"},
    {"{:->5}", 42, "---42"},
    {"{:0>5}", 42, "00042"},
    {"{:L}", 1234567, "1234567"},
    {"{:c}", 65, "A"},
    {"{:3c}", 65, "A  "},
    {"{:c}", 127, "\x7f"},
    {"{:c}", -128, "\x80"},
    {"{:c}", 128, refused},
    {"{:c}", -129, refused},
    {"{:c}", std::uint64_t{1} << 40, refused},
    {"{:+c}", 65, refused},
    {"{:#c}", 65, refused},
    {"{:05c}", 65, refused},
    {"{:.2}", 1, refused},
    {"{:.2d}", 1, refused},
    {"{:00}", 1, refused},
    {"{:000d}", 1, refused},
    {"{:f}", 1, refused},
    {"{:s}", 1, refused},
    {"{:?}", 1, refused},
    {"{:n}", 1, refused},
    {"{:99999999999}", 1, refused},
    {"{:dd}", 1, refused},
    {"{:#+}", 1, refused},
};
INSTANTIATE_TEST_SUITE_P(Integers, FormatTable, testing::ValuesIn(integers));

const std::vector<FormatCase> booleans{
    {"{}", true, "true"},    {"{:s}", false, "false"}, {"{:d}", true, "1"},        {"{:#x}", true, "0x1"},
    {"{:b}", false, "0"},    {"{:04d}", true, "0001"}, {"{:6}|", true, "true  |"}, {"{:>6}", true, "  true"},
    {"{:L}", true, "true"},  {"{:Ld}", true, "1"},     {"{:c}", true, refused},    {"{:?}", true, refused},
    {"{:#}", true, refused}, {"{:+s}", true, refused}, {"{:06}", true, refused},   {"{:.2}", true, refused},
};
INSTANTIATE_TEST_SUITE_P(Booleans, FormatTable, testing::ValuesIn(booleans));

const std::vector<FormatCase> characters{
    {"{}", 'a', "a"},        {"{:c}", 'a', "a"},      {"{:d}", 'a', "97"},     {"{:#x}", 'a', "0x61"},
    {"{:d}", '\x80', "128"}, {"{:3}|", 'a', "a  |"},  {"{:>3}", 'a', "  a"},   {"{:04d}", 'a', "0097"},
    {"{:L}", 'a', "a"},      {"{:s}", 'a', refused},  {"{:?}", 'a', refused},  {"{:+}", 'a', refused},
    {"{:#c}", 'a', refused}, {"{:03}", 'a', refused}, {"{:.1}", 'a', refused},
};
INSTANTIATE_TEST_SUITE_P(Characters, FormatTable, testing::ValuesIn(characters));

const std::vector<FormatCase> texts{
    {"{}", "abc", "abc"},
    {"{:s}", "abc", "abc"},
    {"{:5}|", "abc", "abc  |"},
    {"{:>5}", "abc", "  abc"},
    {"{:^6}|", "abc", " abc  |"},
    {"{:.2}", "abc", "ab"},
    {"{:.0}", "abc", ""},
    {"{:5.2}|", "abc", "ab   |"},
    {"{:\xc3\xa9>5}", "abc",
     "\xc3\xa9\xc3\xa9"
     "abc"},
    {"{:4}|", "\xc3\xa9", "\xc3\xa9   |"},
    {"{:4}|", "\xe6\xbc\xa2", "\xe6\xbc\xa2  |"},
    {"{:.1}|", "\xe6\xbc\xa2", "|"},
    {"{:.3}", "a\xe6\xbc\xa2z", "a\xe6\xbc\xa2"},
    {"{:4}|", "\xff", "\xff   |"},
    {"{:}", "abc", "abc"},
    {"{:}<}", "abc", refused},
    {"{:{<5}", "abc", refused},
    {"{:d}", "abc", refused},
    {"{:?}", "abc", refused},
    {"{:+}", "abc", refused},
    {"{:#}", "abc", refused},
    {"{:05}", "abc", refused},
    {"{:L}", "abc", refused},
};
INSTANTIATE_TEST_SUITE_P(Texts, FormatTable, testing::ValuesIn(texts));

const std::vector<FormatCase> fields{
    {"no field", 1, "no field"}, {"", 1, ""},
    {"{{}}", 1, "{}"},           {"a{{b{}c}}d", 1, "a{b1c}d"},
    {"{0}{0}", 7, "77"},         {"{0:x}", 255, "ff"},
    {"{", 1, refused},           {"}", 1, refused},
    {"{}}", 1, refused},         {"{ }", 1, refused},
    {"{0", 1, refused},          {"{0:", 1, refused},
    {"{:", 1, refused},          {"{0:5", 1, refused},
    {"{1}", 1, refused},         {"{00}", 1, refused},
    {"{01}", 1, refused},        {"{-1}", 1, refused},
    {"{name}", 1, refused},      {"{}{}", 1, refused},
    {"{0}{}", 1, refused},       {"{}{0}", 1, refused},
    {"{!r}", 1, refused},        {"{99999999999999999999}", 1, refused},
};
INSTANTIATE_TEST_SUITE_P(Fields, FormatTable, testing::ValuesIn(fields));

TEST(FormatText, TakesSeveralArgumentsInARow)
{
    EXPECT_EQ(formatText("{} and {}", 1, std::string("two")), "1 and two");
}

TEST(FormatText, TakesArgumentsByNumber)
{
    EXPECT_EQ(formatText("{1} before {0}", "b", "a"), "a before b");
}

TEST(FormatText, LeavesSpareArgumentsUnused)
{
    EXPECT_EQ(formatText("{}", 1, 2), "1");
}

TEST(FormatText, TakesWidthAndPrecisionFromArguments)
{
    EXPECT_EQ(formatText("{:{}}|", "a", 3), "a  |");
    EXPECT_EQ(formatText("{:{}.{}f}", 3.14159, 8, 2), "    3.14");
    EXPECT_EQ(formatText("{0:{1}}", 1, 4u), "   1");
    EXPECT_EQ(formatText("{:{}}", 1, 0), "1");
}

TEST(FormatText, RefusesAWidthThatIsNoIntegerOrOutOfRange)
{
    EXPECT_THROW(formatText("{:{}}", 1, -1), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, 'a'), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, true), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, 2.0), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, "2"), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, std::int64_t{1} << 40), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1), FormatException);
    EXPECT_THROW(formatText("{:{0}}", 1, 2), FormatException);
    EXPECT_THROW(formatText("{:{:}}", 1, 2), FormatException);
}

TEST(FormatText, TakesAWidthOrPrecisionUpToAMillion)
{
    EXPECT_EQ(formatText("{:1000000}", 1).size(), 1000000u);
    EXPECT_EQ(formatText("{:{}}", "a", 1000000).size(), 1000000u);
    EXPECT_EQ(formatText("{:.1000000f}", 1.0).size(), 1000002u);
    EXPECT_EQ(formatText("{:.1000000}", "abc"), "abc");
    for (const char* format : {"{:1000001}", "{:01000001d}", "{:2147483647}"})
        EXPECT_THROW(formatText(format, 1), FormatException) << format;
    for (const char* format : {"{:1000001}", "{:.1000001}", "{:.1000001f}", "{:.2147483647e}"})
        EXPECT_THROW(formatText(format, 1.0), FormatException) << format;
    EXPECT_THROW(formatText("{:.1000001}", "abc"), FormatException);
    EXPECT_THROW(formatText("{:{}}", 1, 1000001), FormatException);
    EXPECT_THROW(formatText("{:.{}f}", 1.0, 1000001), FormatException);
}

TEST(FormatText, RefusesAFieldWithoutArguments)
{
    EXPECT_THROW(formatText("{}"), FormatException);
    EXPECT_EQ(formatText("plain"), "plain");
}

TEST(FormatText, KeepsBytesThatAreNoText)
{
    EXPECT_EQ(formatText(std::string_view("\0{}", 3), 1), std::string("\0"
                                                                      "1",
                                                                      2));
}

TEST(FormatText, DoesNotListenToTheLocale)
{
    const CommaLocale locale;
    EXPECT_EQ(formatText("{} {:L} {:.1f} {:L}", 1.5, 1.5, 1.5, 1234567), "1.5 1.5 1.5 1234567");
}

} // namespace
