#include "shelltester.h"

namespace {

/// The smallest locale in which a decimal comma stands, and the characters that it needs.
constexpr auto localeSource = "LC_NUMERIC\n"
                              "decimal_point \"<U002C>\"\n"
                              "thousands_sep \"<U002E>\"\n"
                              "grouping 3;3\n"
                              "END LC_NUMERIC\n";

std::string characterMap()
{
    std::string map = "<code_set_name> ANSI_X3.4-1968\n<comment_char> %\n<escape_char> /\nCHARMAP\n";
    const char* digits = "0123456789abcdef";
    for (std::size_t code = 0; code < 128; ++code) {
        const std::string number{digits[code / 16], digits[code % 16]};
        map += "<U00" + number + "> /x" + number + " character\n";
    }
    return map + "END CHARMAP\n";
}

/// A definition with numbers in every place: texts, JSON numbers, and actions.
constexpr auto definitionWithNumbers =
    R"({"states": {"a": {"type": "atomic", "wakes": [], )"
    R"("onEntry": "double x = 1234567.5; x = x + 0.25e-3; print(x);"}}, "start": "a", "outputs": {}, )"
    R"("variables": {"v": {"type": "double", "value": "0.125"}}, "outputDelay": 1.5e-9})";

class NumberLocale : public ShellTester
{
protected:
    void SetUp() override
    {
        const std::string source = folder.write("comma.source", localeSource);
        const std::string map = folder.write("characters", characterMap());
        // It warns of the categories that the locale leaves out, and its exit code tells of warnings.
        runProcess({"localedef", "-c", "--no-archive", "-i", source, "-f", map, folder / "comma"});
        comma.environment = {{"LOCPATH", folder.path().native()}, {"LC_ALL", "comma"}};
        plain.environment = {{"LC_ALL", "C"}};
        ASSERT_EQ(runProcess({"/usr/bin/printf", "%.1f", "0"}, comma).output, "0,0")
            << "there is no locale with a decimal comma to test with";
        folder.write("d.json", definitionWithNumbers);
    }

    ProcessOptions comma;
    ProcessOptions plain;
};

} // namespace

TEST_F(NumberLocale, DoesNotReachWhatIsCompiled)
{
    const ProcessResult expected = run({"compile", "d.json", "-"}, plain);
    ASSERT_EQ(expected.exitCode, 0) << expected.error;
    EXPECT_THAT(expected.output, testing::HasSubstr("1234567.5"));
    const ProcessResult result = run({"compile", "d.json", "-"}, comma);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output, expected.output);
}

TEST_F(NumberLocale, DoesNotReachBundlesAndFindings)
{
    EXPECT_EQ(run({"bundle", "d.json", "-"}, comma).output, run({"bundle", "d.json", "-"}, plain).output);
    std::string lines(2000, '\n'); // a line number that would be grouped
    folder.write("late.json", lines + "nix");
    EXPECT_THAT(run({"check", "late.json"}, comma).output,
                testing::StartsWith("late.json:2001:2: error: invalid JSON 'expected 'null'' at line 2001 "));
}
