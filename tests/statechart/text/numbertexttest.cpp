#include "statechart/text/numbertext.h"

#include <limits>

namespace {

TEST(NumberText, GivesIntegersInDecimal)
{
    EXPECT_EQ(numberText(std::int64_t{0}), "0");
    EXPECT_EQ(numberText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(NumberText, GivesDoublesTheirShortestText)
{
    EXPECT_EQ(numberText(1e-9), "1e-09");
    EXPECT_EQ(numberText(1.0), "1");
    EXPECT_EQ(numberText(100000.0), "1e+05");
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(-2.2250738585072014e-308), "-2.2250738585072014e-308");
}

} // namespace
