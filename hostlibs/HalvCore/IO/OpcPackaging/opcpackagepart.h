#ifndef HALVCORE_OPCPACKAGEPART_H
#define HALVCORE_OPCPACKAGEPART_H

#include "HalvCore/IO/writemode.h"
#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/mimetype.h"
#include "HalvCore/string2.h"

#include <memory>

namespace Halvorin::System::IO::OpcPackaging {

struct OpcPackagePartData;

/// One part of a package. Copies are the same part, and keep it alive.
class HALVCORE_EXPORT OpcPackagePart
{
public:
    explicit OpcPackagePart(std::shared_ptr<OpcPackagePartData> data) : m_data(std::move(data)) {}

    Expected<void, ErrorCode2> writeContent(const String2& content, WriteMode mode);
    Expected<ByteArray2, ErrorCode2> readContent() const;
    Expected<MIMEType, ErrorCode2> contentType() const;

private:
    std::shared_ptr<OpcPackagePartData> m_data;
};

} // namespace Halvorin::System::IO::OpcPackaging

#endif
