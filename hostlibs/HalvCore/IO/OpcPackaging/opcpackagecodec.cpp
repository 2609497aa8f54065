#include "HalvCore/IO/OpcPackaging/opcpackagecodec.h"

#include "HalvCore/IO/OpcPackaging/opcpackagedata.h"
#include "HalvCore/IO/OpcPackaging/opcxml.h"
#include "HalvCore/IO/ziparchive.h"
#include "HalvCore/numbertext.h"

#include <set>

namespace Halvorin::System::IO::OpcPackaging {

namespace {

constexpr std::string_view contentTypesItem = "[Content_Types].xml";
constexpr std::string_view relationshipsItem = "_rels/.rels";
constexpr ZipLimits zipLimits{packageItemLimit, packageContentLimit};

ErrorCode2 damaged(std::string what)
{
    return ErrorCode2(FileError::damaged, std::move(what));
}

/// A name that would lead out of the folder into which somebody unpacks the archive.
bool leadsAway(std::string_view name)
{
    const std::string inSlashes = "/" + std::string(name) + "/";
    return name.empty() || name.front() == '/' || inSlashes.find("/../") != std::string::npos ||
           inSlashes.find("/./") != std::string::npos || name.find('\\') != std::string_view::npos ||
           name.find('\0') != std::string_view::npos;
}

Expected<void, ErrorCode2> checkNames(const std::vector<ZipItem>& items)
{
    std::set<std::string> keys;
    for (const ZipItem& item : items) {
        if (leadsAway(item.name))
            return damaged("an item has the forbidden name '" + item.name + "'");
        if (!keys.insert(OpcPackagePartUri::fromItemName(item.name).key()).second)
            return damaged("the item '" + item.name + "' stands there twice");
    }
    return {};
}

const ZipItem* findItem(const std::vector<ZipItem>& items, std::string_view name)
{
    const std::string key = OpcPackagePartUri::fromItemName(name).key();
    for (const ZipItem& item : items) {
        if (OpcPackagePartUri::fromItemName(item.name).key() == key)
            return &item;
    }
    return nullptr;
}

ErrorCode2 tooLongArchive(std::size_t size)
{
    return ErrorCode2(FileError::tooLarge, numberText(size) + " bytes");
}

/// What would be refused where the package is read is refused before it is written, and in the same words.
/// The documents of the package are the first two items.
Expected<void, ErrorCode2> checkReadable(const std::vector<ZipItem>& items)
{
    if (auto checked = checkZipLimits(items, zipLimits); !checked)
        return checked;
    if (const auto types = readContentTypes(items[0].content); !types)
        return types.error();
    if (const auto relationships = readRelationships(items[1].content); !relationships)
        return relationships.error();
    return {};
}

Expected<void, ErrorCode2> addParts(std::vector<ZipItem> items, const ContentTypes& types,
                                    OpcPackageData& package)
{
    for (ZipItem& item : items) {
        const OpcPackagePartUri uri = OpcPackagePartUri::fromItemName(item.name);
        // What cannot be the name of a part, a folder for one, is no part.
        if (!uri.isValid() || uri.key() == OpcPackagePartUri::fromItemName(relationshipsItem).key())
            continue;
        const std::string* type = types.find(uri);
        if (!type)
            return damaged("nothing says what kind of content '" + item.name + "' has");
        const auto compression =
            item.compressed ? CompressionOption::normal : CompressionOption::notCompressed;
        auto part = std::make_shared<OpcPackagePartData>(
            OpcPackagePartData{uri, MIMEType(type->c_str()), compression, std::move(item.content)});
        package.partsByKey.emplace(uri.key(), part);
        package.parts.push_back(std::move(part));
    }
    return {};
}

} // namespace

Expected<ByteArray2, ErrorCode2> encodePackage(const OpcPackageData& package)
{
    ContentTypes types;
    std::vector<ZipItem> items(2);
    for (const auto& part : package.parts) {
        types.overrides.emplace(part->uri.toStdString(), part->contentType.toString().toLegacyUtf8());
        items.push_back({std::string(part->uri.itemName()), part->content,
                         part->compression != CompressionOption::notCompressed});
    }
    types.defaults.emplace("rels", relationshipsContentType);
    items[0] = {std::string(contentTypesItem), writeContentTypes(types), true};
    items[1] = {std::string(relationshipsItem), writeRelationships(package.relationships), true};
    if (auto checked = checkReadable(items); !checked)
        return checked.error();
    auto archive = writeZipArchive(items);
    if (archive && archive->size() > packageFileLimit)
        return tooLongArchive(archive->size());
    return archive;
}

Expected<void, ErrorCode2> decodePackage(std::string_view archive, OpcPackageData& package)
{
    if (archive.size() > packageFileLimit)
        return tooLongArchive(archive.size());
    auto items = readZipArchive(archive, zipLimits);
    if (!items)
        return items.error();
    if (auto checked = checkNames(items.value()); !checked)
        return checked;

    const ZipItem* typesItem = findItem(items.value(), contentTypesItem);
    if (!typesItem)
        return damaged("this archive is no package, it has no '" + std::string(contentTypesItem) + "'");
    const auto types = readContentTypes(typesItem->content);
    if (!types)
        return types.error();
    if (const ZipItem* item = findItem(items.value(), relationshipsItem)) {
        auto relationships = readRelationships(item->content);
        if (!relationships)
            return relationships.error();
        package.relationships = std::move(relationships).value();
    }
    return addParts(std::move(items).value(), types.value(), package);
}

} // namespace Halvorin::System::IO::OpcPackaging
