#include "statechart/check/linemap.h"

namespace {

TEST(LineMap, TakesEachKindOfLineEndAsOne)
{
    const LineMap lines("a\nb\r\nc\rd\n\n");
    EXPECT_EQ(lines.line(1), "a");
    EXPECT_EQ(lines.line(2), "b");
    EXPECT_EQ(lines.line(3), "c");
    EXPECT_EQ(lines.line(4), "d");
    EXPECT_EQ(lines.line(5), "");
    EXPECT_EQ(lines.line(6), "");
}

TEST(LineMap, CountsLinesAndColumnsFromOne)
{
    const LineMap lines("ab\r\ncd");
    EXPECT_EQ(lines.placeOf(0).line, 1u);
    EXPECT_EQ(lines.placeOf(0).column, 1u);
    EXPECT_EQ(lines.placeOf(1).column, 2u);
    EXPECT_EQ(lines.placeOf(3).line, 1u);
    EXPECT_EQ(lines.placeOf(4).line, 2u);
    EXPECT_EQ(lines.placeOf(4).column, 1u);
}

TEST(LineMap, KnowsThePlaceBehindTheLastByte)
{
    EXPECT_EQ(LineMap("").placeOf(0).column, 1u);
    EXPECT_EQ(LineMap("ab").placeOf(2).column, 3u);
    EXPECT_EQ(LineMap("ab\n").placeOf(3).line, 2u);
}

} // namespace
