#ifndef HALVCORE_OPCPACKAGE_H
#define HALVCORE_OPCPACKAGE_H

#include "HalvCore/IO/OpcPackaging/opcpackagepart.h"
#include "HalvCore/IO/OpcPackaging/opcpackageparturi.h"
#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/mimetype.h"
#include "HalvCore/string.h"

#include <memory>

namespace Halvorin::System::IO::OpcPackaging {

/// How a part stands in the archive.
enum class CompressionOption
{
    notCompressed = 0,
    normal = 1,
};

/// Whether the target of a relationship stands in the package.
enum class TargetMode
{
    internal = 0,
    external = 1,
};

struct OpcPackageData;

/// A package of the Open Packaging Conventions, held in memory: named parts with their content types, and
/// the relationships of the package itself. Copies are the same package.
///
///     OpcPackage package;
///     OpcPackagePart part = package.createPart(uri, "text/plain", CompressionOption::normal).value();
///     part.writeContent(text, WriteMode::replace).value();
///     package.createRelationship(uri, TargetMode::internal, type).value();
class HALVCORE_EXPORT OpcPackage
{
public:
    /// An empty package.
    OpcPackage();

    /// The package that stands in the bytes of an archive. Whatever the bytes are, the answer is a package
    /// or an error, and no more than packageContentLimit bytes of content are held.
    static Expected<OpcPackage, ErrorCode2> fromBytes(const ByteArray2& archive);

    /// The package as the bytes of an archive; the same package always gives the same bytes.
    Expected<ByteArray2, ErrorCode2> toBytes() const;

    Expected<OpcPackagePart, ErrorCode2> createPart(const OpcPackagePartUri& uri, const MIMEType& contentType,
                                                    CompressionOption compression);
    Expected<OpcPackagePart, ErrorCode2> part(const OpcPackagePartUri& uri) const;
    Expected<bool, ErrorCode2> partExists(const OpcPackagePartUri& uri) const;

    /// A relationship of the package itself, to the part with this name.
    Expected<void, ErrorCode2> createRelationship(const OpcPackagePartUri& target, TargetMode mode,
                                                  const String& type);

private:
    explicit OpcPackage(std::shared_ptr<OpcPackageData> data);

    std::shared_ptr<OpcPackageData> m_data;
};

/// The most bytes that the parts of a package may have together when it is read, the most bytes of an
/// archive, and the most items in it.
inline constexpr std::size_t packageContentLimit = std::size_t{128} << 20;
inline constexpr std::size_t packageFileLimit = std::size_t{128} << 20;
inline constexpr std::size_t packageItemLimit = 10000;

} // namespace Halvorin::System::IO::OpcPackaging

#endif
