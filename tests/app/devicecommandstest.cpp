#include "shelltester.h"

#include "support/smalldefinition.h"

namespace {

class DeviceCommands : public ShellTester
{
protected:
    DeviceCommands()
    {
        folder.write("d.json", smallDefinition);
        folder.write("bad.json", definitionWithoutStates);
    }

    bool exists(const std::string& name) const { return std::filesystem::exists(folder / name); }
};

} // namespace

TEST_F(DeviceCommands, CompileADefinition)
{
    const ProcessResult result = run({"compile", "d.json", "device.json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(folder.read("device.json"), testing::HasSubstr("\"states\": {\"a\""));
}

TEST_F(DeviceCommands, CompileFromAndToTheStandardStreams)
{
    run({"compile", "d.json", "device.json"});
    const std::string device = folder.read("device.json");
    ProcessOptions options;
    options.input = smallDefinition;
    EXPECT_EQ(run({"compile", "-", "-"}, options).output, device);
    EXPECT_EQ(run({"compile", "d.json", "-"}).output, device);
    EXPECT_EQ(run({"compile", "-", "other.json"}, options).exitCode, 0);
    EXPECT_EQ(folder.read("other.json"), device);
    EXPECT_EQ(run({"compile", "d.json", "/dev/stdout"}).output, device);
}

TEST_F(DeviceCommands, ReportAFailedCompileOnStandardErrorOnly)
{
    const ProcessResult missing = run({"compile", "missing.json", "-"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.error, "unable to open input file 'missing.json'\n");

    const ProcessResult bad = run({"compile", "bad.json", "device.json"});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.output, "");
    EXPECT_EQ(bad.error, "invalid key\n");
    EXPECT_EQ(folder.read("device.json"), "");

    ProcessOptions options;
    options.input = "{\n}x"; // what stands behind the document does not matter
    const ProcessResult empty = run({"compile", "-", "-"}, options);
    EXPECT_EQ(empty.exitCode, 1);
    EXPECT_EQ(empty.output, "");
    EXPECT_EQ(empty.error, "invalid key\n");
    options.input = "";
    EXPECT_EQ(run({"compile", "-", "-"}, options).error,
              "invalid JSON 'expected value' at line 1 character 1\n");
}

TEST_F(DeviceCommands, LocateASyntaxErrorInWhatCannotBeRewound)
{
    folder.write("bad.json", "{\n  \"states\": nix\n}");
    const ProcessResult result = shell("cat bad.json | \"$0\" compile /dev/stdin device.json");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "invalid JSON 'expected 'null'' at line 2 character 14\n");
}

TEST_F(DeviceCommands, RefuseInputThatNeverEnds)
{
    EXPECT_EQ(run({"compile", "/dev/zero", "device.json"}).error,
              "input file '/dev/zero' is too large for a definition\n");
    EXPECT_EQ(run({"check", "/dev/zero"}).error, "halvorin: the file is too large: '/dev/zero'\n");
    EXPECT_EQ(run({"bundle", "/dev/zero", "d.hvdsc.zip"}).error, "the file is too large: '/dev/zero'\n");
    for (const char* command :
         {"compile - device.json", "bundle - device.json", "check -", "unbundle - out"}) {
        const ProcessResult result = shell(std::string("\"$0\" ") + command + " < /dev/zero");
        EXPECT_EQ(result.exitCode, 1) << command;
        EXPECT_THAT(result.error, testing::EndsWith("standard input is too large\n")) << command;
    }
}

TEST_F(DeviceCommands, ReportAFileThatMayNotGrowAndLeaveNoPartOfIt)
{
    folder.write("device.json", "an earlier device");
    folder.write("d.hvdsc.zip", "an earlier bundle");
    ProcessOptions options;
    options.fileSizeLimit = 100;
    const ProcessResult compiled = run({"compile", "d.json", "device.json"}, options);
    EXPECT_EQ(compiled.exitCode, 1);
    EXPECT_EQ(compiled.error, "unable to write output file 'device.json'\n");
    EXPECT_EQ(folder.read("device.json"), "");

    const ProcessResult bundled = run({"bundle", "d.json", "d.hvdsc.zip"}, options);
    EXPECT_EQ(bundled.exitCode, 1);
    EXPECT_EQ(bundled.error, "the file cannot be written: 'd.hvdsc.zip' (File too large)\n");
    EXPECT_EQ(folder.read("d.hvdsc.zip"), "an earlier bundle");
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        EXPECT_EQ(entry.path().filename().native().find(".halvorin-"), std::string::npos) << entry.path();
}

TEST_F(DeviceCommands, WriteNoControlCharactersToTheTerminal)
{
    folder.write("d.json",
                 "{\"states\": {\"a\x1b[2J\": {\"type\": \"atomic\", \"onEntry\": \"x\"}}, \"start\": "
                 "\"a\", \"outputs\": {}, \"outputDelay\": \"1n\"}");
    for (const char* command : {"compile", "bundle"}) {
        const ProcessResult result = run({command, "d.json", "out"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.error, "error: compilation error at 'states[\"a?[2J\"].onEntry'\n");
    }
}

TEST_F(DeviceCommands, CompileFilesWithNamesOfAnyBytes)
{
    folder.write("d\xff.json", smallDefinition);
    EXPECT_EQ(run({"compile", "d\xff.json", "\xe9.json"}).exitCode, 0);
    EXPECT_TRUE(exists("\xe9.json"));
}

TEST_F(DeviceCommands, LeaveNoTemporaryFileBehind)
{
    ProcessOptions options;
    options.input = smallDefinition;
    options.environment = {{"TMPDIR", (folder / "tmp").native()}};
    std::filesystem::create_directory(folder / "tmp");
    EXPECT_EQ(run({"compile", "-", "-"}, options).exitCode, 0);
    EXPECT_EQ(run({"compile", "missing.json", "-"}, options).exitCode, 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
}

TEST_F(DeviceCommands, BundleAndUnbundleADevice)
{
    EXPECT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    EXPECT_EQ(runProcess({"unzip", "-t", (folder / "d.hvdsc.zip").native()}).exitCode, 0);
    EXPECT_EQ(run({"unbundle", "d.hvdsc.zip", "new/folder"}).exitCode, 0);
    EXPECT_EQ(folder.read("new/folder/deviceDefinition.json"), smallDefinition);
    run({"compile", "d.json", "device.json"});
    EXPECT_EQ(folder.read("new/folder/compiledDevice.json"), folder.read("device.json"));
}

TEST_F(DeviceCommands, BundleThroughTheStandardStreams)
{
    run({"bundle", "d.json", "d.hvdsc.zip"});
    ProcessOptions options;
    options.input = smallDefinition;
    const ProcessResult bundle = run({"bundle", "-", "-"}, options);
    EXPECT_EQ(bundle.exitCode, 0);
    EXPECT_EQ(bundle.output, folder.read("d.hvdsc.zip"));
    options.input = bundle.output;
    EXPECT_EQ(run({"unbundle", "-", "out"}, options).exitCode, 0);
    EXPECT_TRUE(exists("out/compiledDevice.json"));
}

TEST_F(DeviceCommands, DoNotBundleADefinitionWithErrors)
{
    folder.write("d.hvdsc.zip", "an earlier bundle");
    const ProcessResult result = run({"bundle", "bad.json", "d.hvdsc.zip"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.error, "");
    EXPECT_EQ(folder.read("d.hvdsc.zip"), "an earlier bundle");
    EXPECT_EQ(run({"bundle", "bad.json", "-"}).output, "");
}

TEST_F(DeviceCommands, DoNotUnbundleWhatIsNoBundle)
{
    const ProcessResult noZip = run({"unbundle", "d.json", "out"});
    EXPECT_EQ(noZip.exitCode, 1);
    EXPECT_THAT(noZip.error, testing::StartsWith("the file is damaged: "));
    EXPECT_FALSE(exists("out"));
    EXPECT_EQ(run({"unbundle", "missing.zip", "out"}).exitCode, 1);
}

TEST_F(DeviceCommands, DoNotUnbundleOverTheBundle)
{
    ASSERT_EQ(run({"bundle", "d.json", "deviceDefinition.json"}).exitCode, 0);
    const std::string bundle = folder.read("deviceDefinition.json");
    const ProcessResult result = run({"unbundle", "deviceDefinition.json", "."});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "'deviceDefinition.json' would be replaced by what it holds\n");
    EXPECT_EQ(folder.read("deviceDefinition.json"), bundle);
    EXPECT_FALSE(std::filesystem::exists(folder / "compiledDevice.json"));
}

TEST_F(DeviceCommands, DoNotUnbundleIntoAFile)
{
    run({"bundle", "d.json", "d.hvdsc.zip"});
    const ProcessResult result = run({"unbundle", "d.hvdsc.zip", "d.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "cannot make the folder 'd.json': Not a directory\n");
    EXPECT_EQ(folder.read("d.json"), smallDefinition);
    EXPECT_EQ(run({"unbundle", "d.hvdsc.zip", "d.json/below"}).error,
              "cannot make the folder 'd.json/below': Not a directory\n");
    EXPECT_EQ(run({"unbundle", "d.hvdsc.zip", ""}).error, "cannot make the folder '': Invalid argument\n");
    EXPECT_EQ(run({"unbundle", "d.hvdsc.zip", "/proc/none"}).error,
              "cannot make the folder '/proc/none': No such file or directory\n");
}

TEST_F(DeviceCommands, ReplaceNeitherDocumentWhenOneCannotBe)
{
    run({"bundle", "d.json", "d.hvdsc.zip"});
    folder.write("out/deviceDefinition.json", "an earlier definition");
    std::filesystem::create_directory(folder / "out/compiledDevice.json");
    const ProcessResult result = run({"unbundle", "d.hvdsc.zip", "out"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "it is a folder: 'out/compiledDevice.json'\n");
    EXPECT_EQ(folder.read("out/deviceDefinition.json"), "an earlier definition");
}

TEST_F(DeviceCommands, DoNotBundleOverTheDefinition)
{
    std::filesystem::create_symlink("d.json", folder / "link.json");
    std::filesystem::create_hard_link(folder / "d.json", folder / "twin.json");
    for (const char* output : {"d.json", "./d.json", "link.json", "twin.json"}) {
        const ProcessResult result = run({"bundle", "d.json", output});
        EXPECT_EQ(result.exitCode, 1) << output;
        EXPECT_EQ(result.error, std::string("the bundle '") + output +
                                    "' would replace the definition that it is made of\n");
    }
    EXPECT_EQ(folder.read("d.json"), smallDefinition);
}

TEST_F(DeviceCommands, SayThatThereIsNoFolderForTemporaryFiles)
{
    ProcessOptions options;
    options.input = smallDefinition;
    options.environment = {{"TMPDIR", (folder / "none").native()}};
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"compile", "-", "o"},
                                                      {"compile", "d.json", "-"},
                                                      {"bundle", "d.json", "-"},
                                                      {"check", "-"},
                                                      {"unbundle", "-", "out"}}) {
        const ProcessResult result = run(arguments, options);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.error,
                    testing::HasSubstr("cannot use the folder for temporary files, which TMPDIR "
                                       "can name: "));
        EXPECT_EQ(result.error.find("filesystem error"), std::string::npos) << result.error;
    }
}
