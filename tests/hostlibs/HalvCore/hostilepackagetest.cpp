#include "HalvCore/IO/OpcPackaging/opcpackage.h"
#include "HalvCore/string2.h"
#include "support/process.h"
#include "support/temporaryfolder.h"

#include <functional>
#include <sys/resource.h>
#include <zip.h>

using namespace Halvorin::System;
using namespace Halvorin::System::IO;
using namespace Halvorin::System::IO::OpcPackaging;

namespace {

constexpr auto contentTypes =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" ContentType="x/r"/><Default Extension="JSON" ContentType="x/j"/></Types>)";
constexpr auto relationships =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"/>)";

struct Item
{
    std::string name;
    std::string content;
};

/// An archive made straight with the zip library, which lets any name pass.
std::string archiveOf(const std::vector<Item>& items)
{
    const TemporaryFolder folder;
    const std::string path = (folder / "a.zip").native();
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
    for (const Item& item : items) {
        zip_source_t* source = zip_source_buffer(archive, item.content.data(), item.content.size(), 0);
        zip_file_add(archive, item.name.c_str(), source, 0);
    }
    if (zip_close(archive) != 0)
        throw std::runtime_error("cannot make an archive");
    return folder.read("a.zip");
}

std::string packageOf(std::vector<Item> parts)
{
    parts.insert(parts.begin(), {{"[Content_Types].xml", contentTypes}, {"_rels/.rels", relationships}});
    return archiveOf(parts);
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// The words of the failure; empty when the bytes are a package.
std::string errorOf(const std::string& archive)
{
    const auto package = OpcPackage::fromBytes(ByteArray2(archive));
    return package ? "" : package.error().message();
}

/// A package of so many parts with the same content.
std::string bomb(int parts, const std::string& content)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("a.zip", packageOf({})).native();
    zip_t* archive = zip_open(path.c_str(), 0, nullptr);
    for (int i = 0; i < parts; ++i) {
        zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
        const zip_int64_t index = zip_file_add(archive, (std::to_string(i) + ".json").c_str(), source, 0);
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 1); // quick
    }
    if (zip_close(archive) != 0)
        throw std::runtime_error("cannot make an archive");
    return folder.read("a.zip");
}

std::size_t peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) << 10; // it comes in kilobytes
}

/// The bytes by which the function lets the memory in use grow at most. A process of its own does it, whose
/// peak is not one that something else has left.
std::size_t grownBy(const std::function<void()>& function)
{
    const TemporaryFolder folder;
    EXPECT_EQ(runInChild([&] {
                  const std::size_t before = peakMemory();
                  function();
                  folder.write("growth", std::to_string(peakMemory() - before));
                  return 0;
              }),
              0);
    return std::stoull(folder.read("growth"));
}

} // namespace

TEST(HostilePackage, IsOpenedWhenItIsNotHostile)
{
    EXPECT_EQ(errorOf(packageOf({{"a.json", "{}"}, {"folder/", ""}, {"no part.txt", ""}})), "");
}

TEST(HostilePackage, ThatIsTruncatedAnywhereIsRefused)
{
    const std::string archive = packageOf({{"a.json", std::string(2000, 'x')}});
    for (std::size_t length = 0; length < archive.size(); ++length)
        ASSERT_NE(errorOf(archive.substr(0, length)), "") << length;
}

TEST(HostilePackage, WithAFlippedBitIsRefusedOrHasTheSameContent)
{
    const std::string content = "{\"a\": \"" + std::string(100, 'x') + "\"}";
    const std::string archive = packageOf({{"a.json", content}});
    const OpcPackagePartUri uri(L"a.json");
    for (std::size_t bit = 0; bit < archive.size() * 8; ++bit) {
        std::string flipped = archive;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
        const auto package = OpcPackage::fromBytes(ByteArray2(flipped));
        if (!package || !package->partExists(uri).value())
            continue; // the flip may have given the part another name
        ASSERT_EQ(package->part(uri)->readContent()->toStdStringView(), content) << bit;
    }
}

TEST(HostilePackage, ThatIsABombIsRefusedInBoundedMemory)
{
    // a gigabyte in a few megabytes
    const std::string archive = bomb(16, std::string(64 << 20, '0'));
    ASSERT_LT(archive.size(), 8U << 20);
    EXPECT_EQ(errorOf(archive), "the file is too large: the content of the archive");
    EXPECT_LT(grownBy([&archive] { errorOf(archive); }), 4 * packageContentLimit);
}

TEST(HostilePackage, ThatClaimsMoreItemsThanItHasIsRefusedInBoundedMemory)
{
    const auto little = [](std::uint64_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text.push_back(static_cast<char>((value >> (8 * i)) & 0xff));
        return text;
    };
    // the wide end record, its locator and the ordinary end record
    const std::string archive = "PK\x06\x06" + little(44, 8) + little(45, 2) + little(45, 2) + little(0, 8) +
                                little(1ULL << 31, 8) + little(1ULL << 31, 8) + little(0, 8) + little(0, 8) +
                                "PK\x06\x07" + little(0, 4) + little(0, 8) + little(1, 4) + "PK\x05\x06" +
                                little(0, 4) + little(0xffff, 2) + little(0xffff, 2) + little(0xffffffff, 4) +
                                little(0xffffffff, 4) + little(0, 2);
    EXPECT_EQ(errorOf(archive), "the file is too large: the number of items in the archive");
    EXPECT_LT(grownBy([&archive] { errorOf(archive); }), std::size_t{100} << 20);
}

TEST(HostilePackage, WithTooManyItemsIsRefused)
{
    std::vector<Item> parts;
    for (std::size_t i = 0; i < packageItemLimit; ++i)
        parts.push_back({std::to_string(i) + ".json", ""});
    EXPECT_EQ(errorOf(packageOf(parts)), "the file is too large: the number of items in the archive");
}

TEST(HostilePackage, WithANameThatLeadsOutOfItsFolderIsRefused)
{
    for (const std::string name :
         {"../evil.json", "a/../../evil.json", "/etc/evil.json", "a\\evil.json", "..", "a/./b.json"}) {
        EXPECT_EQ(errorOf(packageOf({{name, "{}"}})),
                  "the file is damaged: an item has the forbidden name '" + name + "'");
    }
}

TEST(HostilePackage, WithTheSamePartTwiceIsRefused)
{
    const std::string archive = replaced(packageOf({{"a.json", "1"}, {"b.json", "2"}}), "b.json", "a.json");
    EXPECT_EQ(errorOf(archive), "the file is damaged: the item 'a.json' stands there twice");
    EXPECT_EQ(errorOf(packageOf({{"a.json", "1"}, {"A.json", "2"}})),
              "the file is damaged: the item 'A.json' stands there twice");
}

TEST(HostilePackage, ThatIsAnOrdinaryArchiveIsRefused)
{
    EXPECT_EQ(errorOf(archiveOf({{"a.json", "{}"}})),
              "the file is damaged: this archive is no package, it has no '[Content_Types].xml'");
}

TEST(HostilePackage, WithAPartOfUnknownContentTypeIsRefused)
{
    EXPECT_EQ(errorOf(packageOf({{"a.txt", "text"}})),
              "the file is damaged: nothing says what kind of content 'a.txt' has");
}

TEST(HostilePackage, WithDamagedContentTypesOrRelationshipsIsRefused)
{
    for (const std::string xml : {"", "<Types", "<other/>", "<Types/>", "not xml"})
        EXPECT_THAT(errorOf(archiveOf({{"[Content_Types].xml", xml}})),
                    testing::StartsWith("the file is damaged: [Content_Types].xml: "))
            << xml;
    for (const std::string xml : {"", "<Relationships", "<Relationships/>"}) {
        EXPECT_THAT(errorOf(archiveOf({{"[Content_Types].xml", contentTypes}, {"_rels/.rels", xml}})),
                    testing::StartsWith("the file is damaged: _rels/.rels: "))
            << xml;
    }
}

TEST(HostilePackage, WithEntitiesThatGrowIsRefused)
{
    std::string xml = "<!DOCTYPE Types [<!ENTITY a0 \"xxxxxxxxxx\">";
    for (int i = 1; i < 12; ++i) {
        const std::string previous = "&a" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY a" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j)
            xml += previous;
        xml += "\">";
    }
    xml += "]><Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">&a11;</Types>";
    EXPECT_THAT(errorOf(archiveOf({{"[Content_Types].xml", xml}})),
                testing::HasSubstr("a document type definition is not allowed"));
}

TEST(HostilePackage, WithAnElementOfManyAttributesOrNamespacesIsRefused)
{
    for (const std::string attribute : {" a", " xmlns:a"}) {
        for (const bool onRoot : {true, false}) {
            std::string many;
            for (int i = 0; i < 100'000; ++i)
                many += attribute + std::to_string(i) + "='u'";
            const std::string xml =
                "<Types xmlns='http://schemas.openxmlformats.org/package/2006/content-types'" +
                (onRoot ? many : ">\n<Default" + many) + "/>";
            EXPECT_EQ(
                errorOf(archiveOf({{"[Content_Types].xml", xml}})),
                std::string("the file is damaged: [Content_Types].xml: an element is too long at line ") +
                    (onRoot ? "1" : "2"));
        }
    }
}

TEST(HostilePackage, WithMoreThanADocumentInItsXmlIsRefused)
{
    for (const std::string behind : {"<a/>", "text", "<Types/>", "&amp;", "\n\n<!-- a comment --> x"}) {
        for (const std::size_t blanks : {0, 500, 4000}) {
            EXPECT_THAT(errorOf(archiveOf(
                            {{"[Content_Types].xml", contentTypes + std::string(blanks, ' ') + behind}})),
                        testing::StartsWith("the file is damaged: [Content_Types].xml: "))
                << behind << blanks;
        }
    }
}

TEST(HostilePackage, WithXmlThatIsTooLargeIsRefused)
{
    std::string xml(contentTypes);
    while (xml.size() <= std::size_t{8} << 20)
        xml.append("<!--").append(1000, ' ').append("-->");
    EXPECT_EQ(errorOf(archiveOf({{"[Content_Types].xml", xml}})),
              "the file is too large: item '[Content_Types].xml'");
    xml.resize(std::size_t{1} << 20);
    xml.resize(xml.rfind("<!--"));
    EXPECT_EQ(errorOf(archiveOf({{"[Content_Types].xml", xml}})), "");
}

TEST(HostilePackage, ThatIsEncryptedIsRefused)
{
    const TemporaryFolder folder;
    folder.write("[Content_Types].xml", contentTypes);
    ProcessOptions options;
    options.folder = folder.path().native();
    ASSERT_EQ(runProcess({"zip", "-q", "-P", "secret", "-r", "a.zip", "."}, options).exitCode, 0);
    EXPECT_THAT(errorOf(folder.read("a.zip")), testing::StartsWith("the file is damaged: item "));
}
