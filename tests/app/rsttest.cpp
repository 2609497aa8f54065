#include "shelltester.h"

namespace {

class Rst : public ShellTester
{};

} // namespace

TEST_F(Rst, ConvertsAFileToHtmlAsItIs)
{
    folder.write("a.rst", "Title\n=====\n\n**bold** text");
    const ProcessResult result = run({"rst", "a.rst"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output, "<h3>Title</h3><p><b>bold</b> text</p>");
}

TEST_F(Rst, ConvertsStandardInput)
{
    EXPECT_EQ(shell("printf '%s' '*a*' | \"$0\" rst -").output, "<p><i>a</i></p>");
    EXPECT_EQ(shell("printf '%s' '*a*' | \"$0\" rst").output, "<p><i>a</i></p>");
}

TEST_F(Rst, ConvertsDocstringsWhenAsked)
{
    folder.write("a.txt", "(class) Foo\n\nTitle\n=====\n");
    EXPECT_EQ(run({"rst", "--python", "a.txt"}).output,
              "<div class=\"pyLspClass\"><pre>(class) Foo</pre></div><hr /><h1>Title</h1>");
    EXPECT_EQ(run({"rst", "a.txt"}).output, "<p>(class) Foo\n\n</p><h3>Title</h3>");
}

TEST_F(Rst, TakesLinesThatEndAsOnWindows)
{
    folder.write("a.rst", "Title\r\n=====\r\n\r\n- a\r\n- b\r\n");
    EXPECT_EQ(run({"rst", "a.rst"}).output,
              "<h3>Title</h3><ul class=\"minus\"><li><p>a</p></li><li><p>b</p></li></ul>");
}

TEST_F(Rst, TakesBytesThatAreNoText)
{
    folder.write("a.rst", "a\xff\xed\xa0\x80 **b**");
    const ProcessResult result = run({"rst", "a.rst"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_NE(result.output.find("<b>b</b></p>"), std::string::npos);
}

TEST_F(Rst, SaysThatAFileIsNotThere)
{
    const ProcessResult result = run({"rst", "missing.rst"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.error, "");
}

TEST_F(Rst, RefusesTwoFiles)
{
    EXPECT_EQ(run({"rst", "a.rst", "b.rst"}).exitCode, 2);
}
