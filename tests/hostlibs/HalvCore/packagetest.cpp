#include "HalvCore/IO/Bundle/contentbundle.h"
#include "HalvCore/filepath.h"
#include "HalvCore/string2.h"
#include "support/process.h"
#include "support/temporaryfolder.h"

using namespace Halvorin::System;
using namespace Halvorin::System::IO;
using namespace Halvorin::System::IO::OpcPackaging;
using Halvorin::System::IO::Bundle::ContentBundle;

namespace {

String2 text(const std::string& content)
{
    return utf8ToUtf8(content.data(), content.size()).value();
}

const OpcPackagePartUri first(L"document/first.json");
const OpcPackagePartUri second(L"/document/second.json");

/// Two parts, each with its relationship.
OpcPackage examplePackage()
{
    OpcPackage package;
    auto part = package.createPart(first, "application/vnd.example.first", CompressionOption::normal);
    part->writeContent(text("{\"a\": 1}"), WriteMode::replace).value();
    package.createRelationship(first, TargetMode::internal, "http://example.invalid/first").value();
    part = package.createPart(second, "application/vnd.example.second", CompressionOption::notCompressed);
    part->writeContent(text("second & last"), WriteMode::replace).value();
    package.createRelationship(second, TargetMode::internal, "http://example.invalid/second").value();
    return package;
}

std::string contentOf(const OpcPackage& package, const OpcPackagePartUri& uri)
{
    return std::string(package.part(uri)->readContent()->toStdStringView());
}

FilePath2 filePath2(const std::filesystem::path& path)
{
    const std::wstring wide = FilePath(path).toStdWString();
    return {wide.data(), wide.size()};
}

} // namespace

TEST(OpcPackage, CreatesAPartOnce)
{
    OpcPackage package;
    EXPECT_FALSE(package.partExists(first).value());
    EXPECT_TRUE(package.createPart(first, "text/plain", CompressionOption::normal).hasValue());
    EXPECT_TRUE(package.partExists(first).value());
    const auto again = package.createPart(OpcPackagePartUri(L"/DOCUMENT/First.json"), "text/plain",
                                          CompressionOption::normal);
    ASSERT_FALSE(again.hasValue());
    EXPECT_EQ(again.error().code(), ErrorCode(FileError::alreadyExists));
}

TEST(OpcPackage, SaysThatAPartIsNotThere)
{
    const OpcPackage package;
    const auto part = package.part(first);
    ASSERT_FALSE(part.hasValue());
    EXPECT_EQ(part.error().message(), "the file does not exist: part '/document/first.json'");
}

TEST(OpcPackage, ReplacesAndAppendsContent)
{
    OpcPackage package;
    auto part = package.createPart(first, "text/plain", CompressionOption::normal).value();
    part.writeContent(text("ab"), WriteMode::replace).value();
    part.writeContent(text("cd"), WriteMode::append).value();
    EXPECT_EQ(contentOf(package, first), "abcd");
    part.writeContent(text("e"), WriteMode::replace).value();
    EXPECT_EQ(contentOf(package, first), "e");
}

TEST(OpcPackage, RefusesNamesThatNoPartMayHave)
{
    OpcPackage package;
    for (const wchar_t* name : {L"", L"/", L"a//b", L"a/", L"../a", L"a/..", L"a/./b", L"a.", L"a b", L"a\\b",
                                L"a%2Fb", L"a%5cb", L"a%41b", L"a%zz", L"a%2", L"\u00e9", L"[a]"}) {
        const OpcPackagePartUri uri(name);
        EXPECT_FALSE(uri.isValid()) << uri.toStdString();
        EXPECT_FALSE(package.partExists(uri).hasValue());
        EXPECT_FALSE(package.createPart(uri, "text/plain", CompressionOption::normal).hasValue());
        EXPECT_FALSE(package.createRelationship(uri, TargetMode::internal, "type").hasValue());
    }
    for (const wchar_t* name : {L"a", L"/a/b.c", L"a%20b", L"%C3%A9", L"a..b", L".a", L"a@b+c=d"})
        EXPECT_TRUE(OpcPackagePartUri(name).isValid());
}

TEST(OpcPackage, ComesBackFromItsBytes)
{
    const OpcPackage package = examplePackage();
    const OpcPackage copy = OpcPackage::fromBytes(package.toBytes().value()).value();
    EXPECT_EQ(contentOf(copy, first), "{\"a\": 1}");
    EXPECT_EQ(contentOf(copy, second), "second & last");
    EXPECT_EQ(copy.part(first)->contentType().value(), MIMEType("application/vnd.example.first"));
    EXPECT_EQ(copy.toBytes().value(), package.toBytes().value());
}

TEST(OpcPackage, NumbersNewRelationshipsBehindThoseThatWereRead)
{
    OpcPackage copy = OpcPackage::fromBytes(examplePackage().toBytes().value()).value();
    copy.createRelationship(first, TargetMode::external, "http://example.invalid/third").value();
    const TemporaryFolder folder;
    const auto archive = folder.write("package.zip", copy.toBytes()->toStdStringView());
    const ProcessResult listing = runProcess({"unzip", "-p", archive.native(), "_rels/.rels"});
    EXPECT_THAT(listing.output,
                testing::HasSubstr("Id=\"R3\" Type=\"http://example.invalid/third\" "
                                   "Target=\"/document/first.json\" TargetMode=\"External\""));
}

TEST(ContentBundle, OpensInAnOrdinaryZipTool)
{
    const TemporaryFolder folder;
    ContentBundle bundle;
    OpcPackage package = bundle.package().value();
    package.createPart(first, "text/plain", CompressionOption::normal)
        ->writeContent(text("content"), WriteMode::replace)
        .value();
    package.createRelationship(first, TargetMode::internal, "http://example.invalid/first").value();
    bundle.writeToFile(filePath2(folder / "bundle.zip")).value();
    const std::string file = (folder / "bundle.zip").native();

    EXPECT_EQ(runProcess({"unzip", "-t", file}).exitCode, 0);
    EXPECT_EQ(runProcess({"unzip", "-Z1", file}).output,
              "[Content_Types].xml\n_rels/.rels\ndocument/first.json\n");
    EXPECT_EQ(runProcess({"unzip", "-p", file, "document/first.json"}).output, "content");
    EXPECT_EQ(runProcess({"unzip", "-p", file, "\\[Content_Types\\].xml"}).output,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
              "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
              "<Default Extension=\"rels\" "
              "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
              "<Override PartName=\"/document/first.json\" ContentType=\"text/plain\"/></Types>\n");
    EXPECT_EQ(runProcess({"unzip", "-p", file, "_rels/.rels"}).output,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
              "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
              "<Relationship Id=\"R1\" Type=\"http://example.invalid/first\" "
              "Target=\"/document/first.json\"/></Relationships>\n");
}

TEST(ContentBundle, IsReadBackFromAFileOfAnyName)
{
    const TemporaryFolder folder;
    const FilePath2 path = filePath2(folder / "\xff.zip");
    ContentBundle bundle;
    bundle.package()->createPart(first, "text/plain", CompressionOption::normal).value();
    bundle.writeToFile(path).value();
    EXPECT_TRUE(ContentBundle::readFromFile(path)->package()->partExists(first).value());
}

TEST(ContentBundle, SaysWhyItCannotBeWrittenOrRead)
{
    const TemporaryFolder folder;
    const ContentBundle bundle;
    EXPECT_FALSE(bundle.writeToFile(filePath2(folder / "missing/bundle.zip")).hasValue());
    EXPECT_FALSE(bundle.writeToFile(filePath2("/dev/full")).hasValue());
    const auto missing = ContentBundle::readFromFile(filePath2(folder / "missing.zip"));
    ASSERT_FALSE(missing.hasValue());
    EXPECT_EQ(missing.error().code(), ErrorCode(FileError::notFound));
}

TEST(OpcPackage, IsNotWrittenWhenItCouldNotBeReadBack)
{
    const auto wordsOf = [](const OpcPackage& package) {
        const auto bytes = package.toBytes();
        return bytes ? "" : bytes.error().message();
    };
    OpcPackage large;
    const std::string half(packageContentLimit / 2, '0');
    for (const wchar_t* name : {L"a.json", L"b.json"}) {
        auto part = large.createPart(OpcPackagePartUri(name), "text/plain", CompressionOption::normal);
        part->writeContent(text(half), WriteMode::replace).value();
    }
    EXPECT_EQ(wordsOf(large), "the file is too large: the content of the archive");

    OpcPackage many;
    for (std::size_t i = 0; i < packageItemLimit; ++i) {
        const OpcPackagePartUri uri((std::to_wstring(i) + L".json").c_str());
        many.createPart(uri, "text/plain", CompressionOption::normal).value();
    }
    EXPECT_EQ(wordsOf(many), "the file is too large: the number of items in the archive");

    OpcPackage longName;
    longName
        .createPart(OpcPackagePartUri(std::wstring(5000, L'a').c_str()), "text/plain",
                    CompressionOption::normal)
        .value();
    EXPECT_EQ(wordsOf(longName),
              "the file is damaged: [Content_Types].xml: an element is too long at line 1");

    const TemporaryFolder folder;
    ContentBundle bundle;
    bundle.package()
        ->createPart(OpcPackagePartUri(std::wstring(5000, L'a').c_str()), "text/plain",
                     CompressionOption::normal)
        .value();
    EXPECT_FALSE(bundle.writeToFile(filePath2(folder / "a.zip")).hasValue());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}
