#include "shelltester.h"

#include "support/smalldefinition.h"

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
    for (const char* command : {"functions", "call", "compile", "bundle", "unbundle", "check"}) {
        const ProcessResult help = run({command, "--help"});
        EXPECT_EQ(help.exitCode, 0) << command;
        EXPECT_THAT(help.output, testing::HasSubstr(std::string("halvorin"))) << command;
        EXPECT_THAT(help.output, testing::HasSubstr(command));
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
