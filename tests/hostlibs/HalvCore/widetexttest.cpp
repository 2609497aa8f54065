#include "HalvCore/widetext.h"

#include <string>

using namespace Halvorin::System;

TEST(WideText, ConvertsUtf8OfEveryLength)
{
    EXPECT_EQ(wideText("a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"), L"a\u00e9\u20ac\U0001f600");
    EXPECT_EQ(narrowText(std::wstring_view(L"a\u00e9\u20ac\U0001f600")),
              "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
}

TEST(WideText, TakesSurrogatePairsOfUtf16Together)
{
    EXPECT_EQ(narrowText(std::u16string_view(u"\U0001f600")), "\xf0\x9f\x98\x80");
}

TEST(WideText, ReplacesWhatIsNoCharacter)
{
    EXPECT_EQ(narrowText(std::wstring_view(L"\xd800")), "\xef\xbf\xbd");
    EXPECT_EQ(narrowText(std::wstring(1, wchar_t{0x110000})), "\xef\xbf\xbd");
}

TEST(WideText, BringsEveryPairOfBytesBackUnchanged)
{
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string bytes{'x', static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(narrowText(wideText(bytes)), bytes) << first << ' ' << second;
        }
    }
}

TEST(WideText, BringsBytesBackThatLookLikeEncodedSurrogatesOrOverlongForms)
{
    for (const std::string bytes : {"\xed\xb2\x80", "\xc0\xaf", "\xe0\x80\xaf", "\xf4\x90\x80\x80",
                                    "\xe2\x82", "\xf0\x9f\x98", "\xff\xfe", "\xed\xa0\x80\xed\xb0\x80"})
        EXPECT_EQ(narrowText(wideText(bytes)), bytes);
}

TEST(WideText, KeepsZeroBytes)
{
    const std::string bytes("a\0b", 3);
    EXPECT_EQ(wideText(bytes).size(), 3U);
    EXPECT_EQ(narrowText(wideText(bytes)), bytes);
}
