#include "HalvCore/IO/OpcPackaging/opcxml.h"

#include "HalvCore/numbertext.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <functional>
#include <optional>

namespace Halvorin::System::IO::OpcPackaging {

namespace {

constexpr auto contentTypesNamespace = "http://schemas.openxmlformats.org/package/2006/content-types";
constexpr auto relationshipsNamespace = "http://schemas.openxmlformats.org/package/2006/relationships";

QString qString(const std::string& text)
{
    return QString::fromStdString(text);
}

std::string written(const std::function<void(QXmlStreamWriter&)>& write)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.writeStartDocument();
    write(writer);
    writer.writeEndDocument();
    return bytes.toStdString();
}

std::string attribute(const QXmlStreamReader& reader, const char* name)
{
    return reader.attributes().value(QLatin1String(name)).toString().toStdString();
}

/// Hands a document to its reader piece by piece, so that what has no end is known before all of it was read.
class XmlFeed
{
public:
    explicit XmlFeed(std::string_view xml) : m_left(xml) {}

    /// The next token; raises an error for one beyond the limit.
    QXmlStreamReader::TokenType next(QXmlStreamReader& reader)
    {
        auto token = reader.readNext();
        for (std::size_t fed = 0; isWaiting(reader, token) && !m_left.empty(); fed += piece) {
            if (fed == xmlElementLimit) {
                reader.raiseError(QStringLiteral("an element is too long"));
                break;
            }
            reader.addData(QByteArray(m_left.data(), static_cast<int>(std::min(piece, m_left.size()))));
            m_left.remove_prefix(std::min(piece, m_left.size()));
            token = reader.readNext();
        }
        return token;
    }

private:
    static constexpr std::size_t piece = 512;
    static_assert(xmlElementLimit % piece == 0);

    /// Also at the end, behind which there may be more than a document has.
    static bool isWaiting(const QXmlStreamReader& reader, QXmlStreamReader::TokenType token)
    {
        return reader.error() == QXmlStreamReader::PrematureEndOfDocumentError ||
               token == QXmlStreamReader::EndDocument;
    }

    std::string_view m_left;
};

/// Calls `take` for every element below the root. Gives what is wrong with the document.
std::optional<ErrorCode2> readElements(std::string_view xml, const char* document, const char* root,
                                       const char* rootNamespace,
                                       const std::function<void(QXmlStreamReader&)>& take)
{
    if (xml.size() > xmlDocumentLimit)
        return ErrorCode2(FileError::tooLarge, "item '" + std::string(document) + "'");
    QXmlStreamReader reader;
    XmlFeed feed(xml);
    int depth = 0;
    while (!reader.hasError()) {
        const auto token = feed.next(reader);
        if (token == QXmlStreamReader::EndDocument)
            break;
        if (token == QXmlStreamReader::DTD) {
            reader.raiseError(QStringLiteral("a document type definition is not allowed"));
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        } else if (token == QXmlStreamReader::StartElement) {
            const bool isRoot = reader.name() == QLatin1String(root);
            if (reader.namespaceUri() != QLatin1String(rootNamespace) || (depth == 0) != isRoot || depth > 1)
                reader.raiseError(QStringLiteral("unexpected element '%1'").arg(reader.name()));
            else if (depth == 1)
                take(reader);
            ++depth;
        }
    }
    if (!reader.hasError())
        return std::nullopt;
    return ErrorCode2(FileError::damaged, std::string(document) + ": " + reader.errorString().toStdString() +
                                              " at line " + numberText(reader.lineNumber()));
}

void requireAttributes(QXmlStreamReader& reader, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        if (!reader.attributes().hasAttribute(QLatin1String(name)))
            reader.raiseError(QStringLiteral("attribute '%1' is missing").arg(QLatin1String(name)));
    }
}

} // namespace

const std::string* ContentTypes::find(const OpcPackagePartUri& uri) const
{
    const std::string key = uri.key();
    if (const auto own = overrides.find(key); own != overrides.end())
        return &own->second;
    const std::size_t dot = key.rfind('.');
    if (dot == std::string::npos || key.find('/', dot) != std::string::npos)
        return nullptr;
    const auto byExtension = defaults.find(key.substr(dot + 1));
    return byExtension != defaults.end() ? &byExtension->second : nullptr;
}

std::string writeContentTypes(const ContentTypes& types)
{
    return written([&types](QXmlStreamWriter& writer) {
        writer.writeStartElement(QStringLiteral("Types"));
        writer.writeDefaultNamespace(QLatin1String(contentTypesNamespace));
        for (const auto& [extension, type] : types.defaults) {
            writer.writeEmptyElement(QStringLiteral("Default"));
            writer.writeAttribute(QStringLiteral("Extension"), qString(extension));
            writer.writeAttribute(QStringLiteral("ContentType"), qString(type));
        }
        for (const auto& [name, type] : types.overrides) {
            writer.writeEmptyElement(QStringLiteral("Override"));
            writer.writeAttribute(QStringLiteral("PartName"), qString(name));
            writer.writeAttribute(QStringLiteral("ContentType"), qString(type));
        }
    });
}

Expected<ContentTypes, ErrorCode2> readContentTypes(std::string_view xml)
{
    ContentTypes types;
    const auto take = [&types](QXmlStreamReader& reader) {
        if (reader.name() == QLatin1String("Default")) {
            requireAttributes(reader, {"Extension", "ContentType"});
            const QString extension = reader.attributes().value(QLatin1String("Extension")).toString();
            types.defaults.emplace(extension.toLower().toStdString(), attribute(reader, "ContentType"));
        } else if (reader.name() == QLatin1String("Override")) {
            requireAttributes(reader, {"PartName", "ContentType"});
            const std::string name = attribute(reader, "PartName");
            if (name.empty() || name.front() != '/')
                reader.raiseError(QStringLiteral("a part's name starts with a slash"));
            else
                types.overrides.emplace(OpcPackagePartUri::fromItemName(name.substr(1)).key(),
                                        attribute(reader, "ContentType"));
        } else {
            reader.raiseError(QStringLiteral("unexpected element '%1'").arg(reader.name()));
        }
    };
    if (auto error = readElements(xml, "[Content_Types].xml", "Types", contentTypesNamespace, take))
        return *std::move(error);
    return types;
}

std::string writeRelationships(const std::vector<OpcRelationship>& relationships)
{
    return written([&relationships](QXmlStreamWriter& writer) {
        writer.writeStartElement(QStringLiteral("Relationships"));
        writer.writeDefaultNamespace(QLatin1String(relationshipsNamespace));
        for (const OpcRelationship& relationship : relationships) {
            writer.writeEmptyElement(QStringLiteral("Relationship"));
            writer.writeAttribute(QStringLiteral("Id"), qString(relationship.id));
            writer.writeAttribute(QStringLiteral("Type"), qString(relationship.type));
            writer.writeAttribute(QStringLiteral("Target"), qString(relationship.target));
            if (relationship.mode == TargetMode::external)
                writer.writeAttribute(QStringLiteral("TargetMode"), QStringLiteral("External"));
        }
    });
}

Expected<std::vector<OpcRelationship>, ErrorCode2> readRelationships(std::string_view xml)
{
    std::vector<OpcRelationship> relationships;
    const auto take = [&relationships](QXmlStreamReader& reader) {
        requireAttributes(reader, {"Id", "Type", "Target"});
        const bool external = attribute(reader, "TargetMode") == "External";
        relationships.push_back({attribute(reader, "Id"), attribute(reader, "Type"),
                                 attribute(reader, "Target"),
                                 external ? TargetMode::external : TargetMode::internal});
    };
    if (auto error = readElements(xml, "_rels/.rels", "Relationships", relationshipsNamespace, take))
        return *std::move(error);
    return relationships;
}

} // namespace Halvorin::System::IO::OpcPackaging
