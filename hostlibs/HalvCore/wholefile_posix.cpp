#include "HalvCore/wholefile.h"

#include "HalvCore/heldsignals.h"
#include "HalvCore/nativepath.h"
#include "HalvCore/temporaryfile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <span>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Halvorin::System {

namespace {

class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { close(); }

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    bool close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

ErrorCode2 about(FileError error, const std::filesystem::path& path)
{
    return ErrorCode2(error, "'" + narrowPathText(path) + "'");
}

ErrorCode2 failure(FileError error, const std::filesystem::path& path, int number)
{
    return ErrorCode2(error,
                      "'" + narrowPathText(path) + "' (" + std::generic_category().message(number) + ")");
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

Expected<void, ErrorCode2> writeInPlace(const std::filesystem::path& path, std::string_view bytes)
{
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.isOpen())
        return failure(FileError::cannotOpen, path, errno);
    if (!writeAll(file.number(), bytes) || !file.close())
        return failure(FileError::writeFailed, path, errno);
    return {};
}

/// The path behind all links, also behind one that leads to a file that is not there yet.
std::filesystem::path behindLinks(std::filesystem::path path, std::error_code& error)
{
    static constexpr int mostLinks = 40; // as many as the system follows
    for (int links = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(path, error)); ++links) {
        if (links == mostLinks)
            error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
        else
            path = path.parent_path() / std::filesystem::read_symlink(path, error);
        if (error)
            return path;
    }
    return std::filesystem::weakly_canonical(path, error);
}

/// One file on its way: the new content stands in a temporary file, or, for what is no regular file, is
/// still to be written.
class PendingFile
{
public:
    explicit PendingFile(const WholeFile& file) : m_path(file.path), m_bytes(file.bytes) {}

    bool isWrittenInPlace() const { return m_temporary.path().empty(); }

    Expected<void, ErrorCode2> prepare()
    {
        std::error_code error;
        m_target = behindLinks(m_path, error);
        if (error || m_path.empty())
            return failure(FileError::cannotOpen, m_path, error ? error.value() : ENOENT);

        struct stat existing = {};
        if (::stat(m_target.c_str(), &existing) != 0)
            return writeTemporary(nullptr);
        if (S_ISDIR(existing.st_mode))
            return about(FileError::isDirectory, m_path);
        if (::access(m_target.c_str(), W_OK) != 0)
            return about(FileError::accessDenied, m_path);
        if (!S_ISREG(existing.st_mode))
            return {};
        return writeTemporary(&existing);
    }

    Expected<void, ErrorCode2> finishInPlace() { return writeInPlace(m_path, m_bytes); }

    /// Puts the new content into its place. The old one takes that of the temporary file, where the file
    /// system can do so.
    Expected<void, ErrorCode2> finish()
    {
        const char* const from = m_temporary.path().c_str();
        const char* const to = m_target.c_str();
        if (m_replaces && ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_EXCHANGE) == 0) {
            m_state = State::exchanged;
            return {};
        }
        if (::rename(from, to) != 0)
            return failure(FileError::writeFailed, m_path, errno);
        m_temporary.release();
        m_state = State::renamed;
        return {};
    }

    /// Takes finish() back, as far as it can be.
    void undo()
    {
        if (m_state == State::exchanged)
            ::renameat2(AT_FDCWD, m_temporary.path().c_str(), AT_FDCWD, m_target.c_str(), RENAME_EXCHANGE);
        else if (m_state == State::renamed && !m_replaces)
            ::unlink(m_target.c_str());
    }

private:
    /// The mode comes before the content: nobody may read it who could not read the file.
    Expected<void, ErrorCode2> writeTemporary(const struct stat* existing)
    {
        m_replaces = existing != nullptr;
        // It is named apart from the file: that name may already be as long as names can be.
        m_temporary = TemporaryFile(m_target.parent_path() / ".halvorin-", ".tmp", existing ? 0600 : 0666);
        if (!m_temporary.isOpen())
            return noNewFile(errno);
        const int file = m_temporary.descriptor();
        const bool done = (!existing || ::fchmod(file, existing->st_mode & 07777) == 0) &&
                          writeAll(file, m_bytes) && ::fsync(file) == 0 && m_temporary.close();
        if (!done)
            return failure(FileError::writeFailed, m_path, errno);
        return {};
    }

    ErrorCode2 noNewFile(int number) const
    {
        return ErrorCode2(FileError::cannotOpen, "'" + narrowPathText(m_path) +
                                                     "' (no new file can be made in the folder '" +
                                                     narrowPathText(m_target.parent_path()) +
                                                     "': " + std::generic_category().message(number) + ")");
    }

    enum class State
    {
        untouched,
        renamed,
        exchanged, // the temporary file has the old content
    };

    std::filesystem::path m_path; // as it was given, for messages
    std::filesystem::path m_target;
    TemporaryFile m_temporary;
    std::string_view m_bytes;
    bool m_replaces = false; // a file that is there already
    State m_state = State::untouched;
};

using PendingFiles = std::span<PendingFile>;

void undoAll(PendingFiles files)
{
    const HeldSignals held;
    for (PendingFile& file : files)
        file.undo();
}

/// All of them or none, also when a signal comes in the middle: a file that was exchanged has its old content
/// under the name that a handler of signals removes.
Expected<void, ErrorCode2> finishAll(PendingFiles files)
{
    const HeldSignals held;
    for (std::size_t index = 0; index < files.size(); ++index) {
        auto finished = files[index].finish();
        if (finished)
            continue;
        undoAll(files.first(index));
        return finished;
    }
    return {};
}

} // namespace

Expected<void, ErrorCode2> writeWholeFiles(const std::vector<WholeFile>& files)
{
    std::vector<PendingFile> pending;
    pending.reserve(files.size());
    for (const WholeFile& file : files) {
        if (auto prepared = pending.emplace_back(file).prepare(); !prepared)
            return prepared;
    }
    // What is written in place cannot be taken back, and may wait for a reader; so it comes last.
    const auto inPlace = std::stable_partition(
        pending.begin(), pending.end(), [](const PendingFile& file) { return !file.isWrittenInPlace(); });
    const PendingFiles replaced(pending.begin(), inPlace);
    if (auto finished = finishAll(replaced); !finished)
        return finished;
    for (PendingFile& file : PendingFiles(inPlace, pending.end())) {
        if (auto finished = file.finishInPlace(); !finished) {
            undoAll(replaced);
            return finished;
        }
    }
    return {};
}

Expected<void, ErrorCode2> writeWholeFile(const std::filesystem::path& path, std::string_view bytes)
{
    return writeWholeFiles({{path, bytes}});
}

Expected<ByteArray2, ErrorCode2> readWholeFile(const std::filesystem::path& path, std::size_t limit)
{
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen() && errno == ENOENT)
        return about(FileError::notFound, path);
    if (!file.isOpen())
        return failure(FileError::cannotOpen, path, errno);

    std::string bytes;
    std::array<char, 65536> block{};
    while (true) {
        const ssize_t count = ::read(file.number(), block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && errno == EISDIR)
            return about(FileError::isDirectory, path);
        if (count < 0)
            return failure(FileError::readFailed, path, errno);
        if (count == 0)
            return ByteArray2(std::move(bytes));
        if (bytes.size() + static_cast<std::size_t>(count) > limit)
            return about(FileError::tooLarge, path);
        bytes.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace Halvorin::System
