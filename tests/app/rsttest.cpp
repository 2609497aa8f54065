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

TEST_F(Rst, TakesLinesOfDocstringsThatEndAsOnWindows)
{
    folder.write("a.txt", "(class) Foo\r\n\r\n>>> a\r\n1\r\n");
    EXPECT_EQ(run({"rst", "--python", "a.txt"}).output,
              "<div class=\"pyLspClass\"><pre>(class) Foo</pre></div><hr /><div class=\"rstDoctest\"><pre>"
              ">>> a\n1</pre></div>");
}

TEST_F(Rst, ConvertsAnEmptyTextToNothing)
{
    folder.write("empty.rst", "");
    const ProcessResult result = run({"rst", "empty.rst"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output + result.error, "");
}

TEST_F(Rst, SaysWhichFileCannotBeRead)
{
    std::filesystem::create_directory(folder / "folder");
    const std::pair<const char*, const char*> cases[] = {
        {"missing.rst", "the file does not exist: 'missing.rst'\n"},
        {"folder", "it is a folder: 'folder'\n"},
        {"/dev/zero", "the file is too large: '/dev/zero'\n"},
    };
    for (const auto& [file, error] : cases) {
        const ProcessResult result = run({"rst", file});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error, error);
    }
    const ProcessResult endless = shell("\"$0\" rst < /dev/zero");
    EXPECT_EQ(endless.exitCode, 1);
    EXPECT_EQ(endless.error, "standard input is too large\n");
}

TEST_F(Rst, SaysThatItsHtmlWentNowhere)
{
    folder.write("a.rst", std::string(100'000, 'a')); // more than a stream holds back
    const std::pair<Stream, const char*> cases[] = {
        {Stream::closed, "Bad file descriptor"},
        {Stream::brokenPipe, "Broken pipe"},
        {Stream::fullDevice, "No space left on device"},
    };
    for (const auto& [stream, why] : cases) {
        ProcessOptions options;
        options.output = stream;
        const ProcessResult result = run({"rst", "a.rst"}, options);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.error, std::string("halvorin: cannot write to standard output: ") + why + "\n");
    }
}

TEST_F(Rst, RefusesTwoFiles)
{
    EXPECT_EQ(run({"rst", "a.rst", "b.rst"}).exitCode, 2);
}
