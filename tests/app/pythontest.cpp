#include "shelltester.h"

#include "support/fakeprogram.h"

namespace {

/// The shell with an interpreter of a version that no plug-in is for.
class PythonCalls : public ShellTester
{
protected:
    ProcessResult call(const std::string& name, const std::vector<std::string>& arguments = {}) const
    {
        std::vector<std::string> words{
            "--option", "python.userPath=" + interpreter, "--log", "diagnostic", "call", name};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return run(words);
    }

    std::string interpreter = fakeProgram(folder, "python3", "echo 'Python 3.98.1'");
};

} // namespace

TEST_F(PythonCalls, AreListedWithTheirHookAndOptions)
{
    const std::string output = run({"functions"}).output;
    for (const char* line :
         {"function IsPythonLoaded 0..0 1\n", "function PythonDefaults 0..1 12\n",
          "function PythonSupportedVersions 0..0 12\n", "function PythonVersions 0..0 12\n",
          "hook loadPython - -\n", "option python.userPath - -\n", "option python.showCompleter - -\n",
          "option python.showCompleterDocumentation - -\n", "option python.showSignatureHelper - -\n",
          "option python.showHover - -\n"})
        EXPECT_THAT(output, testing::HasSubstr(line));
}

TEST_F(PythonCalls, AnswerForTheInterpreterOfTheUsers)
{
    const ProcessResult versions = call("PythonVersions");
    EXPECT_EQ(versions.exitCode, 0);
    EXPECT_EQ(versions.output, "");
    EXPECT_THAT(versions.error,
                testing::StartsWith("diagnostic: python: Using Python user path, version: 3.98\n"));
    EXPECT_THAT(versions.error, testing::Not(testing::HasSubstr("Found Python installation")));
    EXPECT_EQ(call("IsPythonLoaded").output, "false\n");
    EXPECT_EQ(call("PythonDefaults", {"1"}).output, "\n\n\n");
    EXPECT_THAT(call("PythonSupportedVersions").output, testing::ContainsRegex("^3\\.[0-9]+\n$"));
}

TEST_F(PythonCalls, AnswerWhenTheInterpreterOfTheUsersDoesNot)
{
    for (const char* lines : {"echo nonsense", "exec yes | tr -d '\\n'", "exit 1"}) {
        fakeProgram(folder, "python3", lines);
        const ProcessResult result = call("PythonVersions");
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_THAT(result.error, testing::HasSubstr("warning: python: no Python version can be told of '"));
    }
}

TEST_F(PythonCalls, HaveBoundsOfArguments)
{
    EXPECT_EQ(call("PythonVersions", {"a"}).exitCode, 2);
    EXPECT_EQ(call("PythonDefaults", {"1", "2"}).exitCode, 2);
}
