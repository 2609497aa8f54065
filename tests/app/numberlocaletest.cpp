#include "shelltester.h"
#include "support/commalocale.h"

namespace {

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
        writeCommaLocale(folder);
        comma.environment = {{"LOCPATH", folder.path().native()}, {"LC_ALL", commaLocaleName}};
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
