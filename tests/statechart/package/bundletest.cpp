#include "statechart/package/bundlefile.h"
#include "statechart/package/bundleparts.h"

#include "HalvCore/string2.h"
#include "support/process.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"

using namespace Halvorin::System::IO::OpcPackaging;
using Halvorin::System::ErrorCode2;
using Halvorin::System::utf8ToUtf8;
using Halvorin::System::IO::WriteMode;
using Halvorin::System::IO::Bundle::ContentBundle;
using AccessException = Halvorin::System::bad_expected_access<ErrorCode2>;

namespace {

const OpcPackagePartUri definitionUri(L"document/deviceDefinition.json");

std::string itemOf(const std::filesystem::path& archive, const std::string& name)
{
    return runProcess({"unzip", "-p", archive.native(), name}).output;
}

std::string message(const std::function<void()>& operation)
{
    try {
        operation();
        return "no exception";
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

TEST(DeviceBundle, HasNoPartAtFirst)
{
    const ContentBundle bundle;
    EXPECT_EQ(readDefinition(bundle), std::nullopt);
    EXPECT_EQ(readCompiled(bundle), std::nullopt);
}

TEST(DeviceBundle, GivesBackWhatWasWritten)
{
    ContentBundle bundle;
    const JsonObject definition{{"path", "a/b"}, {"n", 1}, {"x", 0.5}};
    const JsonObject compiled{{"nstates", 3}};
    writeDefinition(bundle, definition);
    EXPECT_EQ(readCompiled(bundle), std::nullopt);
    writeCompiled(bundle, compiled);
    EXPECT_EQ(readDefinition(bundle), definition);
    EXPECT_EQ(readCompiled(bundle), compiled);
}

TEST(DeviceBundle, CreatesEachPartOnceAndThenReplacesItsContent)
{
    const TemporaryFolder folder;
    ContentBundle bundle;
    writeDefinition(bundle, {{"version", 1}});
    writeDefinition(bundle, {{"version", 2}});
    writeCompiled(bundle, {});
    EXPECT_EQ(readDefinition(bundle), (JsonObject{{"version", 2}}));
    writeBundle(bundle, folder / "device.hvdsc.zip");
    EXPECT_EQ(runProcess({"unzip", "-Z1", (folder / "device.hvdsc.zip").native()}).output,
              "[Content_Types].xml\n_rels/.rels\ndocument/deviceDefinition.json\n"
              "document/compiledDevice.json\n");
    const std::string relationships = itemOf(folder / "device.hvdsc.zip", "_rels/.rels");
    EXPECT_EQ(relationships.find("deviceDefinition.json"), relationships.rfind("deviceDefinition.json"));
}

TEST(DeviceBundle, SaysWhatItsPartsAre)
{
    const TemporaryFolder folder;
    ContentBundle bundle;
    writeDefinition(bundle, {{"a", "b/c"}});
    writeCompiled(bundle, {});
    writeBundle(bundle, folder / "device.hvdsc.zip");
    const std::filesystem::path archive = folder / "device.hvdsc.zip";

    EXPECT_EQ(itemOf(archive, "document/deviceDefinition.json"), R"({"a": "b\/c"})");
    const std::string types = itemOf(archive, "\\[Content_Types\\].xml");
    EXPECT_THAT(types, testing::HasSubstr("PartName=\"/document/deviceDefinition.json\" "
                                          "ContentType=\"application/vnd.halvorin.ddsc_definition\""));
    EXPECT_THAT(types, testing::HasSubstr("PartName=\"/document/compiledDevice.json\" "
                                          "ContentType=\"application/vnd.halvorin.ddsc_compiled\""));
    const std::string relationships = itemOf(archive, "_rels/.rels");
    EXPECT_THAT(relationships, testing::HasSubstr("/package/2025/relationships/ddsc/deviceDefinition\" "
                                                  "Target=\"/document/deviceDefinition.json\""));
    EXPECT_THAT(relationships, testing::HasSubstr("/package/2025/relationships/ddsc/compiledDevice\" "
                                                  "Target=\"/document/compiledDevice.json\""));
    EXPECT_THAT(relationships, testing::Not(testing::HasSubstr("External")));
}

TEST(DeviceBundle, RefusesTextThatIsNotUtf8)
{
    ContentBundle bundle;
    EXPECT_THROW(writeDefinition(bundle, {{"a", "\xff"}}), AccessException);
    EXPECT_EQ(readDefinition(bundle), std::nullopt);
}

TEST(DeviceBundle, SaysWhenAPartIsNoJsonObject)
{
    ContentBundle bundle;
    OpcPackage package = bundle.package().value();
    auto part = package.createPart(definitionUri, "text/plain", CompressionOption::normal).value();
    part.writeContent(utf8ToUtf8("{", 1).value(), WriteMode::replace).value();
    EXPECT_EQ(message([&] { readDefinition(bundle); }),
              "invalid JSON 'expected } or object definition' at position 1");
    part.writeContent(utf8ToUtf8("[]", 2).value(), WriteMode::replace).value();
    EXPECT_EQ(message([&] { readDefinition(bundle); }), "JSON document is not an object");
}

TEST(DeviceBundle, RaisesTheErrorOfAFileThatCannotBeWritten)
{
    const TemporaryFolder folder;
    EXPECT_THROW(writeBundle(ContentBundle(), folder / "missing/device.hvdsc.zip"), AccessException);
    EXPECT_THROW(writeBundle(ContentBundle(), "/dev/full"), AccessException);
}

TEST(DeviceBundleFile, HoldsTheDefinitionAndTheDevice)
{
    const TemporaryFolder folder;
    const auto definition = folder.write("d.json", smallDefinition);
    bundleDevice(definition, folder / "d.hvdsc.zip");
    const DeviceBundleContent content = unbundleDevice(folder / "d.hvdsc.zip");
    EXPECT_EQ(content.definition, smallDefinition);
    ASSERT_TRUE(content.compiled.has_value());
    EXPECT_THAT(*content.compiled, testing::HasSubstr("\"states\": {\"a\""));
}

TEST(DeviceBundleFile, IsTheSameForTheSameDefinition)
{
    const TemporaryFolder folder;
    const auto definition = folder.write("d.json", smallDefinition);
    bundleDevice(definition, folder / "1.zip");
    bundleDevice(definition, folder / "2.zip");
    EXPECT_EQ(folder.read("1.zip"), folder.read("2.zip"));
}

TEST(DeviceBundleFile, IsLeftAloneWhenTheDefinitionHasErrors)
{
    const TemporaryFolder folder;
    folder.write("d.hvdsc.zip", "an earlier bundle");
    const auto bad = folder.write("bad.json", definitionWithoutStates);
    EXPECT_THROW(bundleDevice(bad, folder / "d.hvdsc.zip"), std::exception);
    EXPECT_EQ(message([&] { bundleDevice(folder.write("e.json", "{\n1}"), folder / "d.hvdsc.zip"); }),
              "invalid JSON 'expected } or object definition' at line 2 character 1");
    EXPECT_EQ(folder.read("d.hvdsc.zip"), "an earlier bundle");
}

TEST(DeviceBundleFile, IsNotWrittenWithAKeyThatCannotBeReadBack)
{
    const TemporaryFolder folder;
    const auto definition = folder.write("d.json", R"({"states": {"a\"b": {"type": "atomic"}},
        "start": "a\"b", "outputs": {}, "outputDelay": 1})");
    EXPECT_EQ(message([&] { bundleDevice(definition, folder / "d.hvdsc.zip"); }),
              R"(the key 'a"b' at states["a"b"] cannot be written: it has a quote or a backslash)");
    EXPECT_FALSE(std::filesystem::exists(folder / "d.hvdsc.zip"));
}

TEST(DeviceBundleFile, MayHaveOnePartOnly)
{
    const TemporaryFolder folder;
    ContentBundle bundle;
    writeCompiled(bundle, {{"nstates", 0}});
    writeBundle(bundle, folder / "d.hvdsc.zip");
    const DeviceBundleContent content = unbundleDevice(folder / "d.hvdsc.zip");
    EXPECT_EQ(content.definition, std::nullopt);
    EXPECT_EQ(content.compiled, R"({"nstates": 0})");
}

TEST(DeviceBundleFile, SaysWhyItCannotBeRead)
{
    const TemporaryFolder folder;
    const std::string missing = folder / "missing.zip";
    EXPECT_THAT(message([&] { unbundleDevice(missing); }),
                testing::StartsWith("the file does not exist: '" + missing + "'"));
    const std::string noZip = folder.write("d.zip", "no archive");
    EXPECT_THAT(message([&] { unbundleDevice(noZip); }), testing::StartsWith("the file is damaged: "));
    EXPECT_THAT(message([&] { bundleDevice(missing, noZip); }),
                testing::StartsWith("the file does not exist: '" + missing + "'"));
}
