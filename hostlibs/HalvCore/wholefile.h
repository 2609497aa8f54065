#ifndef HALVCORE_WHOLEFILE_H
#define HALVCORE_WHOLEFILE_H

#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"
#include "HalvCore/halvcoreexport.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace Halvorin::System {

/// Makes `bytes` the content of a file, or leaves the file as it was: they go to a temporary file beside it,
/// which then takes its name. So a new file must be allowed in the folder. A link is followed, also one to a
/// file that is not there yet; an existing file keeps its mode; and what is no regular file (a pipe, a
/// device) is written in place.
HALVCORE_EXPORT Expected<void, ErrorCode2> writeWholeFile(const std::filesystem::path& path,
                                                          std::string_view bytes);

/// A file to be, and what it shall hold. The bytes are borrowed.
struct WholeFile
{
    std::filesystem::path path;
    std::string_view bytes;
};

/// As writeWholeFile() for several files that belong together: no file is replaced before the new content of
/// every one stands on the disk, and what was replaced is put back when another file cannot be. A signal that
/// comes meanwhile waits, as far as the calling thread is the one to handle it: that of a process of one
/// thread.
HALVCORE_EXPORT Expected<void, ErrorCode2> writeWholeFiles(const std::vector<WholeFile>& files);

/// The content of a file, or FileError::tooLarge when it has more than `limit` bytes; no more than that is
/// held in memory in either case.
HALVCORE_EXPORT Expected<ByteArray2, ErrorCode2> readWholeFile(const std::filesystem::path& path,
                                                               std::size_t limit);

} // namespace Halvorin::System

#endif
