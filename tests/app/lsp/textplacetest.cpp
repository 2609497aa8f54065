#include "lsp/textplace.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

std::string placed(const char* text, int line, int column)
{
    try {
        const ProtocolPlace place = protocolPlace(QString::fromUtf8(text), {line, column});
        return std::to_string(place.line) + ":" + std::to_string(place.character);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

} // namespace

TEST(TextPlace, IsReadFromLineAndColumn)
{
    const TextPlace place = parseTextPlace("12:3");
    EXPECT_EQ(place.line, 12);
    EXPECT_EQ(place.column, 3);
}

TEST(TextPlace, IsRefusedWhenItIsNotTwoCounts)
{
    for (const char* text : {"", ":", "1", "1:", ":1", "0:1", "1:0", "-1:1", "1:-1", "1:1:1", "1:1 ", " 1:1",
                             "a:b", "1;1", "99999999999:1", "1:99999999999"})
        EXPECT_THROW(parseTextPlace(text), std::invalid_argument) << text;
}

TEST(TextPlace, IsCountedFromZeroInTheProtocol)
{
    EXPECT_EQ(placed("ab\ncd\n", 1, 1), "0:0");
    EXPECT_EQ(placed("ab\ncd\n", 2, 2), "1:1");
}

TEST(TextPlace, MayStandBehindTheLastCharacter)
{
    EXPECT_EQ(placed("ab\ncd", 1, 3), "0:2");
    EXPECT_EQ(placed("ab\ncd", 2, 3), "1:2");
    EXPECT_EQ(placed("ab\n", 2, 1), "1:0");
    EXPECT_EQ(placed("", 1, 1), "0:0");
}

TEST(TextPlace, CountsCharactersThatAreTwoUnits)
{
    EXPECT_EQ(placed("\xF0\x9F\x90\x8D\xC3\xA4x", 1, 3), "0:3");
}

TEST(TextPlace, KnowsAllEndsOfLines)
{
    EXPECT_EQ(placed("a\r\nb\rc\nd", 4, 2), "3:1");
    EXPECT_EQ(placed("a\r\nb", 1, 2), "0:1");
    EXPECT_EQ(placed("a\r\nb", 1, 3), "line 1 has no column 3");
}

TEST(TextPlace, IsRefusedOutsideTheText)
{
    EXPECT_EQ(placed("ab\n", 3, 1), "there is no line 3");
    EXPECT_EQ(placed("ab\n", 1, 4), "line 1 has no column 4");
    EXPECT_EQ(placed("ab\n", 2, 2), "line 2 has no column 2");
}
