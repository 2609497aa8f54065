#include "statechart/package/compilecommand.h"

#include "statechart/json/jsonreader.h"
#include "statechart/package/definitionsizelimit.h"
#include "support/process.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"

#include <csignal>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <thread>

using Strings = std::vector<std::string>;
namespace fs = std::filesystem;

namespace {

class CompileCommand : public testing::Test
{
protected:
    Strings compile(const fs::path& input, const fs::path& output) const
    {
        return compileDigitalDeviceStateChart(input.c_str(), output.c_str());
    }

    TemporaryFolder folder;
    fs::path definition = folder.write("definition.json", smallDefinition);
    fs::path device = folder / "device.json";
};

} // namespace

TEST_F(CompileCommand, WritesTheCompiledDeviceAndSaysOk)
{
    EXPECT_EQ(compile(definition, device), Strings{"Ok"});
    std::istringstream stream(folder.read("device.json"));
    const JsonDocument document = readDocument(stream);
    EXPECT_TRUE(asObject(document).contains("states"));
    EXPECT_THAT(folder.read("device.json"), testing::Not(testing::HasSubstr("\n")));
}

TEST_F(CompileCommand, SaysWhichInputItCannotOpen)
{
    const fs::path missing = folder / "missing.json";
    EXPECT_EQ(compile(missing, device),
              (Strings{"Error", "unable to open input file '" + missing.native() + "'"}));
}

TEST_F(CompileCommand, StillCreatesOrTruncatesTheOutputWhenTheInputIsMissing)
{
    compile(folder / "missing.json", device);
    EXPECT_EQ(folder.read("device.json"), "");
    folder.write("device.json", "an earlier device");
    compile(folder / "missing.json", device);
    EXPECT_EQ(folder.read("device.json"), "");
}

TEST_F(CompileCommand, TakesAFolderForAnInputThatCannotBeOpened)
{
    EXPECT_EQ(compile(folder.path(), device),
              (Strings{"Error", "unable to open input file '" + folder.path().native() + "'"}));
}

TEST_F(CompileCommand, TestsTheInputBeforeTheOutput)
{
    const fs::path missing = folder / "missing.json";
    EXPECT_EQ(compile(missing, folder / "none/device.json"),
              (Strings{"Error", "unable to open input file '" + missing.native() + "'"}));
}

TEST_F(CompileCommand, SaysWhichOutputItCannotOpen)
{
    for (const fs::path& path : {folder / "none/device.json", folder.path()}) {
        EXPECT_EQ(compile(definition, path),
                  (Strings{"Error", "unable to open output file '" + path.native() + "'"}));
    }
}

TEST_F(CompileCommand, TakesAnEmptyTextForAnEmptyPath)
{
    EXPECT_EQ(compile("", device), (Strings{"Error", "unable to open input file ''"}));
    EXPECT_EQ(compile(definition, ""), (Strings{"Error", "unable to open output file ''"}));
}

TEST_F(CompileCommand, TruncatesTheFileWhenInputAndOutputAreTheSame)
{
    EXPECT_EQ(compile(definition, definition),
              (Strings{"Error", "invalid JSON 'expected value' at line 1 character 1"}));
    EXPECT_EQ(folder.read("definition.json"), "");
}

TEST_F(CompileCommand, ReportsASyntaxErrorByLineAndCharacter)
{
    folder.write("definition.json", "{\n  \"states\": nix\n}");
    EXPECT_EQ(compile(definition, device),
              (Strings{"Error", "invalid JSON 'expected 'null'' at line 2 character 14"}));
}

TEST_F(CompileCommand, RefusesADocumentThatIsAnArray)
{
    folder.write("definition.json", "[]");
    EXPECT_EQ(compile(definition, device), (Strings{"Error", "JSON document is not an object"}));
}

TEST_F(CompileCommand, RefusesADocumentThatIsABareNumber)
{
    folder.write("definition.json", "1");
    EXPECT_EQ(compile(definition, device), (Strings{"Error", "invalid type for JSON document"}));
}

TEST_F(CompileCommand, LeavesAnEmptyOutputWhenTheDefinitionFailsToCompile)
{
    folder.write("definition.json", definitionWithoutStates);
    folder.write("device.json", "an earlier device");
    const Strings result = compile(definition, device);
    EXPECT_EQ(result, (Strings{"Error", "invalid key"}));
    EXPECT_EQ(folder.read("device.json"), "");
}

TEST_F(CompileCommand, NeverSaysOkWhenTheOutputIsFull)
{
    EXPECT_EQ(compile(definition, "/dev/full"),
              (Strings{"Error", "unable to write output file '/dev/full'"}));
}

TEST_F(CompileCommand, LeavesAnEmptyOutputWhenOnlyAPartOfItFits)
{
    folder.write("device.json", "an earlier device");
    const Strings expected{"Error", "unable to write output file '" + device.native() + "'"};
    EXPECT_EQ(runInChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  limitFileSize(20);
                  return compile(definition, device) == expected ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.read("device.json"), "");
}

TEST_F(CompileCommand, CannotOpenAnOutputThatItMayNotWrite)
{
    folder.write("device.json", "an earlier device");
    fs::permissions(device, fs::perms::owner_read);
    const Strings expected{"Error", "unable to open output file '" + device.native() + "'"};
    EXPECT_EQ(runInChild([&] {
                  dropRights();
                  return compile(definition, device) == expected ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.read("device.json"), "an earlier device");
}

TEST_F(CompileCommand, ReportsASyntaxErrorByLineAndCharacterInWhatCannotBeRewound)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&pipe] { std::ofstream(pipe) << "{\n  \"states\": nix\n}"; });
    EXPECT_EQ(compile(pipe, device),
              (Strings{"Error", "invalid JSON 'expected 'null'' at line 2 character 14"}));
    writer.join();
}

TEST_F(CompileCommand, RefusesAnInputThatIsTooLarge)
{
    fs::resize_file(definition, definitionSizeLimit + 1);
    EXPECT_EQ(compile(definition, device),
              (Strings{"Error", "input file '" + definition.native() + "' is too large for a definition"}));
    EXPECT_EQ(compile("/dev/zero", device),
              (Strings{"Error", "input file '/dev/zero' is too large for a definition"}));
    EXPECT_EQ(folder.read("device.json"), "");
}

TEST_F(CompileCommand, ReadsAndWritesFilesWithNamesOfAnyBytes)
{
    const fs::path input = folder.write("d\xff\xe9.json", smallDefinition);
    EXPECT_EQ(compile(input, folder / "\xc3.json"), Strings{"Ok"});
    EXPECT_NE(folder.read("\xc3.json"), "");
}

TEST_F(CompileCommand, SurvivesInputThatIsHostile)
{
    folder.write("definition.json", std::string(1 << 20, '['));
    EXPECT_EQ(compile(definition, device)[0], "Error");
    folder.write("definition.json", std::string("\0\xff\x80{", 4));
    EXPECT_EQ(compile(definition, device)[0], "Error");
}
