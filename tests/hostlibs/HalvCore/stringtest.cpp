#include "HalvCore/string.h"

#include "HalvCore/string2.h"
#include "HalvCore/stringview.h"

using namespace Halvorin::System;

TEST(String, IsBuiltFromEveryKindOfText)
{
    const String expected("\xc3\xa9");
    EXPECT_EQ(String(u8"\u00e9"), expected);
    EXPECT_EQ(String(u"\u00e9"), expected);
    EXPECT_EQ(String(L"\u00e9"), expected);
    EXPECT_EQ(String(std::wstring(L"\u00e9")), expected);
    EXPECT_EQ(String(std::string("\xc3\xa9")), expected);
}

TEST(String, CountsBytes)
{
    const String text(L"\u20ac");
    EXPECT_EQ(text.size(), 3U);
    EXPECT_EQ(text.length(), 3U);
    EXPECT_EQ(text.toStdStringView(), "\xe2\x82\xac");
    EXPECT_EQ(text.toLegacyUtf8(), "\xe2\x82\xac");
    EXPECT_STREQ(text.c_str(), "\xe2\x82\xac");
}

TEST(String, IsEmptyForANullPointer)
{
    EXPECT_EQ(String(static_cast<const char*>(nullptr)).size(), 0U);
    EXPECT_EQ(String(static_cast<const wchar_t*>(nullptr)).size(), 0U);
}

TEST(String, AppendsAndReplaces)
{
    String text("ab");
    text += "cd";
    EXPECT_EQ(text, String("abcd"));
    text.assign(L"\u00e9");
    EXPECT_EQ(text, String("\xc3\xa9"));
}

TEST(String, ComparesWithAndWithoutRegardToCase)
{
    EXPECT_EQ(String("Pin").compare("pIN", CaseSensitivity::insensitive), 0);
    EXPECT_NE(String("Pin").compare("pIN", CaseSensitivity::sensitive), 0);
    EXPECT_LT(String("a").compare("B", CaseSensitivity::insensitive), 0);
    EXPECT_GT(String("ab").compare("A", CaseSensitivity::insensitive), 0);
    EXPECT_FALSE(String("Pin") == String("pin"));
}

TEST(StringView, BorrowsTheTextOfAStringAndOfAUtf8Pointer)
{
    const String text("abc");
    EXPECT_EQ(StringView(text).data(), text.data());
    EXPECT_EQ(StringView(u8"abc").toStdStringView(), "abc");
}

TEST(String2, IsMadeOfValidUtf8Only)
{
    EXPECT_EQ(utf8ToUtf8("\xc3\xa9", 2)->toStdStringView(), "\xc3\xa9");
    EXPECT_EQ(toUtf8(ByteArray2("abc"))->length(), 3U);
    EXPECT_EQ(toUtf8(ByteArray2(std::string("a\0b", 3)))->length(), 3U);
}

TEST(String2, SaysWhereTextIsNotUtf8)
{
    for (const std::string bytes : {"ab\xff", "ab\xc3", "ab\xed\xa0\x80", "ab\xc0\x80"}) {
        const auto text = utf8ToUtf8(bytes.data(), bytes.size());
        ASSERT_FALSE(text.hasValue());
        EXPECT_EQ(text.error().message(), "the text is not valid UTF-8: byte 2");
    }
}
