#include "HalvCore/IO/OpcPackaging/opcpackage.h"

#include "HalvCore/IO/OpcPackaging/opcpackagecodec.h"
#include "HalvCore/IO/OpcPackaging/opcpackagedata.h"
#include "HalvCore/numbertext.h"

#include <algorithm>

namespace Halvorin::System::IO::OpcPackaging {

namespace {

ErrorCode2 invalidName(const OpcPackagePartUri& uri)
{
    return ErrorCode2(SystemError::invalidArgument, "'" + uri.toStdString() + "' is no name of a part");
}

std::string freeId(const std::vector<OpcRelationship>& relationships)
{
    for (std::size_t number = relationships.size() + 1;; ++number) {
        std::string id = "R" + numberText(number);
        if (std::ranges::find(relationships, id, &OpcRelationship::id) == relationships.end())
            return id;
    }
}

} // namespace

OpcPackage::OpcPackage() : OpcPackage(std::make_shared<OpcPackageData>()) {}

OpcPackage::OpcPackage(std::shared_ptr<OpcPackageData> data) : m_data(std::move(data)) {}

Expected<OpcPackage, ErrorCode2> OpcPackage::fromBytes(const ByteArray2& archive)
{
    auto data = std::make_shared<OpcPackageData>();
    if (const auto decoded = decodePackage(archive.toStdStringView(), *data); !decoded)
        return decoded.error();
    return OpcPackage(std::move(data));
}

Expected<ByteArray2, ErrorCode2> OpcPackage::toBytes() const
{
    return encodePackage(*m_data);
}

Expected<OpcPackagePart, ErrorCode2> OpcPackage::createPart(const OpcPackagePartUri& uri,
                                                            const MIMEType& contentType,
                                                            CompressionOption compression)
{
    if (!uri.isValid())
        return invalidName(uri);
    if (m_data->partsByKey.contains(uri.key()))
        return ErrorCode2(FileError::alreadyExists, "part '" + uri.toStdString() + "'");
    auto part = std::make_shared<OpcPackagePartData>(OpcPackagePartData{uri, contentType, compression, {}});
    m_data->parts.push_back(part);
    m_data->partsByKey.emplace(uri.key(), part);
    return OpcPackagePart(std::move(part));
}

Expected<OpcPackagePart, ErrorCode2> OpcPackage::part(const OpcPackagePartUri& uri) const
{
    const auto found = m_data->partsByKey.find(uri.key());
    if (found == m_data->partsByKey.end())
        return ErrorCode2(FileError::notFound, "part '" + uri.toStdString() + "'");
    return OpcPackagePart(found->second);
}

Expected<bool, ErrorCode2> OpcPackage::partExists(const OpcPackagePartUri& uri) const
{
    if (!uri.isValid())
        return invalidName(uri);
    return m_data->partsByKey.contains(uri.key());
}

Expected<void, ErrorCode2> OpcPackage::createRelationship(const OpcPackagePartUri& target, TargetMode mode,
                                                          const String& type)
{
    if (!target.isValid())
        return invalidName(target);
    if (type.empty())
        return ErrorCode2(SystemError::invalidArgument, "a relationship needs a type");
    m_data->relationships.push_back(
        {freeId(m_data->relationships), type.toLegacyUtf8(), target.toStdString(), mode});
    return {};
}

Expected<void, ErrorCode2> OpcPackagePart::writeContent(const String2& content, WriteMode mode)
{
    if (mode == WriteMode::replace)
        m_data->content.clear();
    m_data->content.append(content.toStdStringView());
    return {};
}

Expected<ByteArray2, ErrorCode2> OpcPackagePart::readContent() const
{
    return ByteArray2(m_data->content);
}

Expected<MIMEType, ErrorCode2> OpcPackagePart::contentType() const
{
    return m_data->contentType;
}

} // namespace Halvorin::System::IO::OpcPackaging
