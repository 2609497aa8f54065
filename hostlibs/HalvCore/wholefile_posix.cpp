#include "HalvCore/wholefile.h"

#include "HalvCore/nativepath.h"
#include "HalvCore/numbertext.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

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

/// A file of its own in `folder`, named apart from whatever it will be called in the end: that name may
/// already be as long as names can be.
std::pair<Descriptor, std::filesystem::path> makeTemporary(const std::filesystem::path& folder)
{
    std::random_device random;
    for (int attempt = 0;; ++attempt) {
        const std::filesystem::path path = folder / (".halvorin-" + numberText(random()) + ".tmp");
        Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file.isOpen() || errno != EEXIST || attempt == 100)
            return {std::move(file), path};
    }
}

Expected<void, ErrorCode2> writeAndRename(const std::filesystem::path& path, std::string_view bytes,
                                          const struct stat* existing)
{
    auto [file, temporary] = makeTemporary(path.parent_path());
    if (!file.isOpen())
        return failure(FileError::cannotOpen, path, errno);
    const bool done = writeAll(file.number(), bytes) &&
                      (!existing || ::fchmod(file.number(), existing->st_mode & 07777) == 0) &&
                      ::fsync(file.number()) == 0 && file.close() &&
                      ::rename(temporary.c_str(), path.c_str()) == 0;
    if (!done) {
        const int number = errno;
        ::unlink(temporary.c_str());
        return failure(FileError::writeFailed, path, number);
    }
    return {};
}

} // namespace

Expected<void, ErrorCode2> writeWholeFile(const std::filesystem::path& path, std::string_view bytes)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error || path.empty())
        return failure(FileError::cannotOpen, path, error ? error.value() : ENOENT);

    struct stat existing = {};
    if (::stat(target.c_str(), &existing) != 0)
        return writeAndRename(target, bytes, nullptr);
    if (S_ISDIR(existing.st_mode))
        return about(FileError::isDirectory, path);
    if (!S_ISREG(existing.st_mode))
        return writeInPlace(path, bytes);
    if (::access(target.c_str(), W_OK) != 0)
        return about(FileError::accessDenied, path);
    return writeAndRename(target, bytes, &existing);
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
