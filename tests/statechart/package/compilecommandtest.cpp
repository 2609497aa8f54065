#include "statechart/package/compilecommand.h"

#include "statechart/json/jsonreader.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"

#include <sstream>

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
    ASSERT_EQ(result.size(), 2U);
    EXPECT_EQ(result[0], "Error");
    EXPECT_NE(result[1], "");
    EXPECT_EQ(folder.read("device.json"), "");
}

TEST_F(CompileCommand, NeverSaysOkWhenTheOutputIsFull)
{
    EXPECT_EQ(compile(definition, "/dev/full"),
              (Strings{"Error", "unable to write output file '/dev/full'"}));
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
