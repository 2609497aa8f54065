#ifndef HALVCORE_OPCPACKAGECODEC_H
#define HALVCORE_OPCPACKAGECODEC_H

#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"

#include <string_view>

namespace Halvorin::System::IO::OpcPackaging {

struct OpcPackageData;

/// A package as an archive and back: "[Content_Types].xml" first, the package's relationships in
/// "_rels/.rels", then an item for every part. A package that decodePackage() would find too large is
/// refused.
Expected<ByteArray2, ErrorCode2> encodePackage(const OpcPackageData& package);

/// Fills `package`, which is empty at first and of no use after an error. Refused are an archive that is
/// damaged or encrypted, has more content or items than a package may have, names an item twice or with a
/// way out of its folder, or says nothing of the content type of a part.
Expected<void, ErrorCode2> decodePackage(std::string_view archive, OpcPackageData& package);

} // namespace Halvorin::System::IO::OpcPackaging

#endif
