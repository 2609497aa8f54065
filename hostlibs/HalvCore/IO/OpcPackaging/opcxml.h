#ifndef HALVCORE_OPCXML_H
#define HALVCORE_OPCXML_H

#include "HalvCore/IO/OpcPackaging/opcpackagedata.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Halvorin::System::IO::OpcPackaging {

inline constexpr std::string_view relationshipsContentType =
    "application/vnd.openxmlformats-package.relationships+xml";

/// Which content type each part has: by its own name, else by the extension of its name.
struct ContentTypes
{
    std::map<std::string, std::string> defaults;  // extension in lower case, without the dot
    std::map<std::string, std::string> overrides; // name of a part; its key when read

    /// Of content types that were read. Null when nothing is said of the part.
    const std::string* find(const OpcPackagePartUri& uri) const;
};

/// The most bytes of a document, and of an element in it without what stands within. A package of as many
/// parts as it may have, with names of hundreds of letters, has less.
inline constexpr std::size_t xmlDocumentLimit = std::size_t{8} << 20;
inline constexpr std::size_t xmlElementLimit = 4096;

/// The two documents that make an archive a package. The readers refuse one beyond the limits, since the time
/// for an element goes with the square of its attributes, and a document type definition, which could grow
/// without bound.
std::string writeContentTypes(const ContentTypes& types);
Expected<ContentTypes, ErrorCode2> readContentTypes(std::string_view xml);
std::string writeRelationships(const std::vector<OpcRelationship>& relationships);
Expected<std::vector<OpcRelationship>, ErrorCode2> readRelationships(std::string_view xml);

} // namespace Halvorin::System::IO::OpcPackaging

#endif
