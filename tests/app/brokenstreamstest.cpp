#include "shelltester.h"

#include "support/smalldefinition.h"

/// A success is never claimed for output that went nowhere.
class BrokenStreams : public ShellTester, public testing::WithParamInterface<Stream>
{};

static std::string streamName(const testing::TestParamInfo<Stream>& stream)
{
    switch (stream.param) {
    case Stream::captured:
        return "captured";
    case Stream::closed:
        return "closed";
    case Stream::brokenPipe:
        return "brokenPipe";
    case Stream::fullDevice:
        break;
    }
    return "fullDevice";
}

INSTANTIATE_TEST_SUITE_P(EachKind, BrokenStreams,
                         testing::Values(Stream::closed, Stream::brokenPipe, Stream::fullDevice), streamName);

TEST_P(BrokenStreams, AreReportedForStandardOutput)
{
    folder.write("d.json", smallDefinition);
    ProcessOptions options;
    options.output = GetParam();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"},
          {"--version"},
          {"functions"},
          {"compile", "d.json", "-"},
          {"bundle", "d.json", "-"},
          {"call", "CompileDigitalDeviceStateChart", "d.json", "device.json"}}) {
        const ProcessResult result = run(arguments, options);
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(arguments);
        EXPECT_THAT(result.error, testing::HasSubstr("cannot write to standard output: "));
    }
}

TEST_P(BrokenStreams, KeepAFailureAFailureForStandardError)
{
    ProcessOptions options;
    options.error = GetParam();
    EXPECT_EQ(run({"nonsense"}, options).exitCode, 2);
    EXPECT_EQ(run({"compile", "missing.json", "device.json"}, options).exitCode, 1);
}

TEST_P(BrokenStreams, AreReportedForALogThatIsLost)
{
    folder.write("d.json", smallDefinition);
    ProcessOptions options;
    options.error = GetParam();
    EXPECT_EQ(
        run({"--option", "application.logScriptCalls=true", "--log", "info", "compile", "d.json", "o.json"},
            options)
            .exitCode,
        1);
}

TEST_P(BrokenStreams, DoNotMatterToWhatSaysNothing)
{
    folder.write("d.json", smallDefinition);
    ProcessOptions options;
    options.output = GetParam();
    options.error = GetParam();
    EXPECT_EQ(run({"compile", "d.json", "device.json"}, options).exitCode, 0);
    EXPECT_THAT(folder.read("device.json"), testing::StartsWith("{\"states\""));
}
