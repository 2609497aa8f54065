#ifndef HALVCORE_ZIPARCHIVE_H
#define HALVCORE_ZIPARCHIVE_H

#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Halvorin::System::IO {

struct ZipItem
{
    std::string name;
    std::string content;
    bool compressed = true;
};

struct ZipLimits
{
    std::size_t items;
    std::size_t contentBytes; // of all items together
};

/// All items of an archive, in its order. Content is checked against its checksum. The limits are those of
/// what is really there, whatever the archive says of itself.
Expected<std::vector<ZipItem>, ErrorCode2> readZipArchive(std::string_view archive, ZipLimits limits);

/// Whether readZipArchive() would take an archive of these items.
Expected<void, ErrorCode2> checkZipLimits(const std::vector<ZipItem>& items, ZipLimits limits);

/// Items have one fixed time stamp: the same items give the same bytes.
Expected<ByteArray2, ErrorCode2> writeZipArchive(const std::vector<ZipItem>& items);

} // namespace Halvorin::System::IO

#endif
