#include "shelltester.h"

#include "support/smalldefinition.h"
#include "testfolders.h"

#include <filesystem>
#include <fstream>

namespace {

/// A definition whose one state has this text, as it stands in JSON, for its entry action.
std::string withAction(const std::string& jsonText)
{
    return "{\n"
           "\t\"states\": {\"a\": {\"type\": \"atomic\", \"onEntry\": " +
           jsonText +
           "}},\n"
           "\t\"start\": \"a\", \"outputs\": {}, \"outputDelay\": \"1n\"\n"
           "}\n";
}

class Check : public ShellTester
{
protected:
    ProcessResult check(const std::string& definition, std::vector<std::string> options = {})
    {
        folder.write("d.json", definition);
        options.insert(options.begin(), {"check", "d.json"});
        return run(options);
    }
};

} // namespace

TEST_F(Check, SaysNothingOfADefinitionWithoutFault)
{
    const ProcessResult result = check(smallDefinition);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "");
}

TEST_F(Check, PrintsAnErrorWithItsPlaceItsPathTheLineAndACaret)
{
    const ProcessResult result = check(withAction(R"(["int x = 1; print(x);", "x = 2;"])"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output,
              "d.json:2:74: error: 'x': undeclared identifier at states[\"a\"].onEntry.[1]\n"
              "\t\"states\": {\"a\": {\"type\": \"atomic\", \"onEntry\": [\"int x = 1; print(x);\", \"x = "
              "2;\"]}},\n"
              "\t                                                                        ^\n");
}

TEST_F(Check, CountsTheFilesCharactersInsideAJsonString)
{
    // \" in the file is one character of the action; two bytes of the e with its accent are one column shown
    const ProcessResult result = check(withAction(R"("print(\"é\"); y = 1;")"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::StartsWith("d.json:2:64: error: "));
    EXPECT_THAT(result.output, testing::EndsWith("\n\t" + std::string(61, ' ') + "^\n"));
}

TEST_F(Check, PrintsAWarningAndIsContent)
{
    const ProcessResult result = check(withAction(R"("int z;")"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output,
                testing::StartsWith("d.json:2:53: warning: 'z' is not used at states[\"a\"].onEntry\n"));
}

TEST_F(Check, PrintsOneObjectALineAsJson)
{
    const ProcessResult result = check(withAction(R"("int z;")"), {"--json"});
    EXPECT_EQ(
        result.output,
        "{\"code\":6,\"column\":53,\"file\":\"d.json\",\"line\":2,"
        "\"name\":\"unassigned-variable\",\"path\":\"states[\\\"a\\\"].onEntry\",\"severity\":\"warning\","
        "\"text\":\"'z' is not used\"}\n");
}

TEST_F(Check, LocatesASyntaxErrorOfTheJson)
{
    const ProcessResult result = check("{\n  \"states\": nix\n}");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "d.json:2:14: error: invalid JSON 'expected 'null'' at line 2 character 14\n"
                             "  \"states\": nix\n"
                             "             ^\n");
}

TEST_F(Check, ChecksEveryFileWhateverTheOthersAreLike)
{
    folder.write("bad.json", "[]");
    folder.write("good.json", smallDefinition);
    const ProcessResult result = run({"check", "missing.json", "bad.json", "good.json", "."});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::StartsWith("bad.json:1:1: error: "));
    EXPECT_EQ(result.error, "halvorin: the file does not exist: 'missing.json'\n"
                            "halvorin: it is a folder: '.'\n");
}

TEST_F(Check, ReadsStandardInput)
{
    ProcessOptions options;
    options.input = "[]";
    const ProcessResult result = run({"check", "-"}, options);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::StartsWith("<standard input>:1:1: error: "));
}

TEST_F(Check, ReadsStandardInputOnlyOnce)
{
    ProcessOptions options;
    options.input = "[]";
    const ProcessResult result = run({"check", "-", "-"}, options);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "halvorin: standard input can be checked only once\n");
}

TEST_F(Check, ShowsAFileNameThatIsNoTextWithAReplacementInJson)
{
    folder.write("a\xff.json", "[]");
    const ProcessResult result = run({"check", "--json", "a\xff.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::HasSubstr("\"file\":\"a\xef\xbf\xbd.json\""));
}

TEST_F(Check, TakesOptionsBehindItsFiles)
{
    folder.write("d.json", smallDefinition);
    EXPECT_EQ(run({"check", "d.json", "--json", "--log", "info"}).exitCode, 0);
    EXPECT_EQ(run({"check", "d.json", "--nonsense"}).exitCode, 2);
}

TEST_F(Check, ShowsOnlyThePartOfALongLineAroundThePlace)
{
    const std::string filler = "int a = 1; print(a); ";
    std::string action = "\"";
    for (int i = 0; i < 200; ++i)
        action += "{" + filler + "} ";
    const ProcessResult result = check(withAction(action + "y = 1;\""));
    EXPECT_EQ(result.exitCode, 1);
    const std::string line = result.output.substr(result.output.find('\n') + 1);
    EXPECT_THAT(line, testing::StartsWith("..."));
    EXPECT_LT(line.find('\n'), 130U);
    const std::size_t caret =
        result.output.rfind('^') - result.output.rfind('\n', result.output.rfind('^')) - 1;
    EXPECT_EQ(line[caret], 'y');
}

TEST_F(Check, WritesNoControlCharactersToTheTerminal)
{
    const ProcessResult result = check(withAction("\"y = 1; \x1b[2J\""));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output.find('\x1b'), std::string::npos);
}

TEST_F(Check, ReportsWhatItCannotWrite)
{
    folder.write("d.json", "[]");
    ProcessOptions options;
    options.output = Stream::fullDevice;
    EXPECT_EQ(run({"check", "d.json"}, options).exitCode, 1);
    folder.write("d.json", withAction(R"("int z;")"));
    const ProcessResult result = run({"check", "d.json"}, options);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, testing::HasSubstr("cannot write to standard output"));
}

TEST_F(Check, ReportsEveryErrorOfAFile)
{
    const ProcessResult result = check(withAction(R"(["x;", "y;"])"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::HasSubstr("'x': undeclared identifier"));
    EXPECT_THAT(result.output, testing::HasSubstr("'y': undeclared identifier"));
}

TEST_F(Check, DoesNotReportDisabledWarnings)
{
    const ProcessResult result =
        check(withAction(R"("int z; if (1) print(1);")"), {"--disable", "unassigned-variable"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, testing::StartsWith("d.json:2:60: warning: this condition is always true"));
    EXPECT_EQ(check(withAction(R"("int z; if (1) print(1);")"),
                    {"--disable", "unassigned-variable", "--disable", "constant-condition"})
                  .output,
              "");
}

TEST_F(Check, TakesAWarningForAnErrorWhenAsked)
{
    const ProcessResult result = check(withAction(R"("int z;")"), {"--error", "unassigned-variable"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::StartsWith("d.json:2:53: error: 'z' is not used"));
}

TEST_F(Check, RefusesAKindThatThereIsNot)
{
    const ProcessResult result = check(smallDefinition, {"--disable", "nonsense"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.error,
                testing::HasSubstr("no such kind of finding: nonsense (see halvorin check --help)"));
    EXPECT_EQ(check(smallDefinition, {"--error", "nonsense"}).exitCode, 2);
}

TEST_F(Check, RefusesToDisableErrors)
{
    const ProcessResult result = check(smallDefinition, {"--disable", "invalid-action"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.error, testing::HasSubstr("not a kind of warning: invalid-action"));
}

TEST_F(Check, ListsTheKindsOfWarningsInItsHelp)
{
    const ProcessResult result = run({"check", "--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output,
                testing::HasSubstr("  unknown-target        the target of a transition is no state\n"));
    EXPECT_THAT(result.output, testing::Not(testing::HasSubstr("invalid-action ")));
}

TEST_F(Check, SaysOfTheCarelessLatchWhatStandsBesideIt)
{
    const std::filesystem::path example =
        std::filesystem::path(PROJECT_FOLDER) / "examples/charts-with-errors/careless-latch";
    std::ifstream definition(example / "definition.json");
    folder.write("definition.json", std::string(std::istreambuf_iterator<char>(definition), {}));
    std::ifstream findings(example / "findings.txt");
    const std::string expected(std::istreambuf_iterator<char>(findings), {});
    const ProcessResult result = run({"check", "definition.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, expected);
}

TEST_F(Check, HasOneFormatAtATime)
{
    EXPECT_EQ(check(smallDefinition, {"--json", "--sarif"}).exitCode, 2);
}
