#include "highlight/sourcelines.h"

namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const std::string& text)
{
    SourceLines source(text);
    Lines lines;
    QString line;
    while (source.next(line))
        lines.push_back(line.toStdString());
    return lines;
}

} // namespace

TEST(SourceLines, AreSplitAtNewLinesOfWhichAFinalOneStartsNoLine)
{
    EXPECT_EQ(linesOf(""), Lines{});
    EXPECT_EQ(linesOf("\n"), Lines{""});
    EXPECT_EQ(linesOf("a"), Lines{"a"});
    EXPECT_EQ(linesOf("a\n"), Lines{"a"});
    EXPECT_EQ(linesOf("a\n\n"), (Lines{"a", ""}));
    EXPECT_EQ(linesOf("\na"), (Lines{"", "a"}));
    EXPECT_EQ(linesOf("a\x0c\x0b\u2028z"), Lines{"a\x0c\x0b\u2028z"});
}

TEST(SourceLines, LoseACarriageReturnRightBeforeANewLineOnly)
{
    EXPECT_EQ(linesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
    EXPECT_EQ(linesOf("\r\n"), Lines{""});
    EXPECT_EQ(linesOf("a\r\r\nb\rc\r"), (Lines{"a\r", "b\rc\r"}));
}

TEST(SourceLines, PassOverAByteOrderMarkAtTheStartAlone)
{
    EXPECT_EQ(linesOf("\ufeff"), Lines{});
    EXPECT_EQ(linesOf("\ufeffa\n\ufeff"
                      "b\n"),
              (Lines{"a", "\ufeff"
                          "b"}));
    EXPECT_EQ(linesOf("\ufeff\ufeff"
                      "a"),
              Lines{"\ufeff"
                    "a"});
}

TEST(SourceLines, KeepEveryCharacter)
{
    using namespace std::string_literals;
    const std::string text = "\0é€😀\uffff\U0010ffff\x7f"s;
    EXPECT_EQ(linesOf(text), Lines{text});
}

TEST(SourceLines, RefuseWhatIsNotUtf8)
{
    for (const char* bytes :
         {"\xe9", "a\nb\xff\n", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82", "a\xe2\n\x82\xac",
          "\xff\xfe"
          "a"})
        EXPECT_THROW(SourceLines{bytes}, std::invalid_argument) << testing::PrintToString(bytes);
}
