#include "shelltester.h"

#include "support/smalldefinition.h"
#include "testfolders.h"

#include <fstream>

namespace {

class CommandLine : public ShellTester
{};

constexpr auto compileFunction = "CompileDigitalDeviceStateChart";

} // namespace

TEST_F(CommandLine, ExplainsItself)
{
    const ProcessResult help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.error, "");
    for (const char* word : {"functions", "call", "compile", "bundle", "unbundle", "check", "--option",
                             "--options-file", "--log", "Exit codes"})
        EXPECT_THAT(help.output, testing::HasSubstr(word));
}

TEST_F(CommandLine, ExplainsEverySubcommand)
{
    struct Row
    {
        const char* command;
        std::vector<std::string> words;
    };
    for (const auto& [command, words] : std::vector<Row>{
             {"functions", {"--json", "Print one JSON object a line", "Codes: 1 a boolean, 12 "}},
             {"call", {"call [OPTIONS] NAME [ARG]...", "Everything behind NAME is an argument"}},
             {"compile", {"DEFINITION", "OUT", "- for standard input", "- for standard output"}},
             {"check",
              {"DEFINITION", "--json", "- for standard input", "FILE:LINE:COLUMN: error: TEXT at PATH"}},
             {"bundle", {"DEFINITION", "OUT", "- for standard input", "- for standard output"}},
             {"unbundle", {"FILE", "DIRECTORY", "deviceDefinition.json", "compiledDevice.json"}},
         }) {
        const ProcessResult help = run({command, "--help"});
        EXPECT_EQ(help.exitCode, 0) << command;
        EXPECT_EQ(help.error, "");
        EXPECT_THAT(help.output,
                    testing::HasSubstr(std::string("Usage: halvorin ") + command + " [OPTIONS]"));
        for (const std::string& word : words)
            EXPECT_THAT(help.output, testing::HasSubstr(word)) << command;
        EXPECT_THAT(help.output, testing::HasSubstr("Exit codes: 0 ")) << command;
    }
}

TEST_F(CommandLine, TellsWrongUsageFromErrorsInTheInput)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"nonsense"},
                                                      {"compile"},
                                                      {"compile", "a"},
                                                      {"compile", "a", "b", "c"},
                                                      {"functions", "--nonsense"},
                                                      {"functions", "--log", "loud"},
                                                      {"functions", "--option", "novalue"},
                                                      {"functions", "--option", "=x"},
                                                      {"functions", "--options-file", "/"},
                                                      {"check"},
                                                      {"call"}}) {
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(result.output, "");
        EXPECT_THAT(result.error, testing::StartsWith("halvorin: "));
    }
}

TEST_F(CommandLine, TakesGlobalOptionsOnBothSidesOfTheSubcommand)
{
    EXPECT_EQ(run({"--option", "a=b", "functions"}).exitCode, 0);
    EXPECT_EQ(run({"functions", "--option", "a=b", "--option", "c=d=e", "--log", "diagnostic"}).exitCode, 0);
}

TEST_F(CommandLine, ListsWhatTheLibraryRegistered)
{
    const ProcessResult result = run({"functions"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, testing::HasSubstr("function CompileDigitalDeviceStateChart 2..2 12\n"));
}

TEST_F(CommandLine, ListsAsJsonOneObjectALine)
{
    const ProcessResult result = run({"functions", "--json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output,
                testing::HasSubstr("{\"kind\":\"function\",\"maximumArguments\":2,\"minimumArguments\":2,"
                                   "\"name\":\"CompileDigitalDeviceStateChart\",\"resultType\":12}\n"));
}

TEST_F(CommandLine, CallsAFunctionAndPrintsEachStringOnALine)
{
    folder.write("d.json", smallDefinition);
    const ProcessResult done = run({"call", compileFunction, "d.json", "device.json"});
    EXPECT_EQ(done.exitCode, 0);
    EXPECT_EQ(done.output, "Ok\n");
    EXPECT_NE(folder.read("device.json"), "");

    const ProcessResult failed = run({"call", compileFunction, "missing.json", "device.json"});
    EXPECT_EQ(failed.exitCode, 0);
    EXPECT_EQ(failed.output, "Error\nunable to open input file 'missing.json'\n");
}

TEST_F(CommandLine, TakesEverythingBehindTheNameAsArguments)
{
    EXPECT_EQ(run({"call", compileFunction, "--log", "out"}).output,
              "Error\nunable to open input file '--log'\n");
    EXPECT_EQ(run({"call", compileFunction, "compile", "out"}).output,
              "Error\nunable to open input file 'compile'\n");
    EXPECT_EQ(run({"call", compileFunction, "[a,b]", ""}).output,
              "Error\nunable to open input file '[a,b]'\n");
    EXPECT_EQ(run({"call", compileFunction, "", "out"}).output, "Error\nunable to open input file ''\n");
    for (const std::string argument :
         {"-h", "--help", "--", "++", "--version", "--option", "-x", "-qmljsdebugger=x"})
        EXPECT_EQ(run({"call", compileFunction, argument, "out"}).output,
                  "Error\nunable to open input file '" + argument + "'\n");
    EXPECT_EQ(run({"call", compileFunction, "in", "--"}).output, "Error\nunable to open input file 'in'\n");
    EXPECT_TRUE(std::filesystem::exists(folder / "--"));
}

TEST_F(CommandLine, TakesEverythingBeforeTheNameAsOptions)
{
    const std::string logged = "info: script: CompileDigitalDeviceStateChart(\"a\", \"b\")\n";
    const std::string output = "Error\nunable to open input file 'a'\n";
    for (const std::vector<std::string>& options : {std::vector<std::string>{"call", "--log", "info"},
                                                    {"--log=info", "call"},
                                                    {"--log", "info", "call", "--"},
                                                    {"call", "--log=info", "--"}}) {
        std::vector<std::string> words{"--option", "application.logScriptCalls=true"};
        words.insert(words.end(), options.begin(), options.end());
        words.insert(words.end(), {compileFunction, "a", "b"});
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(words);
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(result.error, logged);
    }
    EXPECT_EQ(run({"call", "--", compileFunction, "a", "b"}).output, output);
    EXPECT_EQ(run({"call", "--nonsense", compileFunction, "a", "b"}).exitCode, 2);
    EXPECT_THAT(run({"call", "--help", compileFunction, "a"}).output, testing::HasSubstr("NAME"));
}

TEST_F(CommandLine, SaysWhatIsNoSubcommand)
{
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"foo"}, {"--log", "info", "foo", "--json"}, {"foo", "call"}}) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.error, "halvorin: 'foo' is no subcommand (--help explains)\n");
    }
    EXPECT_EQ(run({"--help", "foo"}).exitCode, 0);
}

TEST_F(CommandLine, RefusesACallOutsideTheBounds)
{
    const ProcessResult few = run({"call", compileFunction, "a"});
    EXPECT_EQ(few.exitCode, 2);
    EXPECT_EQ(few.error, "halvorin: CompileDigitalDeviceStateChart takes 2 arguments, 1 was given\n");
    EXPECT_EQ(run({"call", compileFunction, "a", "b", "c"}).exitCode, 2);
}

TEST_F(CommandLine, RefusesACallOfAnUnknownName)
{
    const ProcessResult result = run({"call", "Nonsense"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.error, "halvorin: there is no script function or command 'Nonsense'\n");
    for (const std::string name : {"compile", "call", "--", "-x"})
        EXPECT_EQ(run({"call", "--", name}).error,
                  "halvorin: there is no script function or command '" + name + "'\n");
    EXPECT_EQ(run({"call", "compile"}).error, "halvorin: there is no script function or command 'compile'\n");
}

TEST_F(CommandLine, LogsCallsWhenAnOptionSaysSo)
{
    const std::vector<std::string> call{"call", compileFunction, "a", "b"};
    std::vector<std::string> logged{"--option", "application.logScriptCalls=true", "--log", "info"};
    logged.insert(logged.end(), call.begin(), call.end());
    EXPECT_EQ(run(logged).error, "info: script: CompileDigitalDeviceStateChart(\"a\", \"b\")\n");
    EXPECT_EQ(run(call).error, "");
}

TEST_F(CommandLine, ReadsOptionsFromTheFileThatItIsGiven)
{
    folder.write("mine.ini", "[General]\napplication.logScriptCalls=true\n");
    const ProcessResult result =
        run({"--options-file", "mine.ini", "--log", "info", "call", compileFunction, "a", "b"});
    EXPECT_THAT(result.error, testing::HasSubstr("info: script: "));
    folder.write("config/halvorin/halvorin.ini", "[General]\napplication.logScriptCalls=true\n");
    EXPECT_THAT(run({"--log", "info", "call", compileFunction, "a", "b"}).error,
                testing::HasSubstr("info: script: "));
}

TEST_F(CommandLine, ReadsAnOptionsFileAsTheReferenceShowsIt)
{
    std::ifstream stream(PROJECT_FOLDER "/docs/reference/options.md");
    const std::string page(std::istreambuf_iterator<char>(stream), {});
    const std::string open = "```ini\n";
    const std::size_t start = page.find(open);
    ASSERT_NE(start, std::string::npos);
    folder.write(
        "config/halvorin/halvorin.ini",
        page.substr(start + open.size(), page.find("```", start + open.size()) - start - open.size()));
    EXPECT_EQ(run({"--log", "info", "call", compileFunction, "definition.json", "device.json"}).error +
                  "```\n",
              page.substr(page.rfind("info: script: ")));
}

TEST_F(CommandLine, TakesDefaultsWhenTheUsersOptionsCannotBeRead)
{
    folder.write("d.json", smallDefinition);
    std::filesystem::create_directories(folder / "config/halvorin/halvorin.ini");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"compile", "d.json", "device.json"},
          {"call", compileFunction, "d.json", "device.json"}}) {
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.error, "warning: settings: cannot read the options file '" +
                                    (folder / "config/halvorin/halvorin.ini").native() +
                                    "'; options have their defaults\n");
    }
}

TEST_F(CommandLine, DoesNotStoreAnOptionOfOneRun)
{
    run({"--option", "application.logScriptCalls=true", "call", compileFunction, "a", "b"});
    EXPECT_EQ(run({"--log", "info", "call", compileFunction, "a", "b"}).error, "");
}
