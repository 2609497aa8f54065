#ifndef HALVCORE_TEMPORARYFILE_H
#define HALVCORE_TEMPORARYFILE_H

#include "HalvCore/halvcoreexport.h"

#include <filesystem>
#include <string>

namespace Halvorin::System {

/// A file of our own under a name that nobody else has, removed in the end, also when a signal ends the
/// process whose handler calls removeAll(). It can be moved, not copied.
///
///     TemporaryFile file("/tmp/halvorin-", ".tmp", 0600);
///     if (!file.isOpen()) ... // errno says why
class HALVCORE_EXPORT TemporaryFile
{
public:
    /// None.
    TemporaryFile() = default;

    /// Makes the file and opens it for writing; something is put between the two parts of its path.
    TemporaryFile(const std::filesystem::path& start, const std::string& ending, unsigned mode);

    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) noexcept;
    ~TemporaryFile();

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }

    /// Empty for none.
    const std::filesystem::path& path() const { return m_path; }

    /// Tells whether all that was written arrived. The file stays.
    bool close();

    /// From now on this is none: the file has got another name.
    void release() noexcept;

    /// Removes the files of all that there are. It may be called from a signal handler.
    static void removeAll() noexcept;

private:
    void removeFile() noexcept;

    std::filesystem::path m_path;
    int m_descriptor = -1;
    int m_slot = -1;
};

} // namespace Halvorin::System

#endif
