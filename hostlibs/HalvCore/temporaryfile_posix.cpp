#include "HalvCore/temporaryfile.h"

#include "HalvCore/numbertext.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <unistd.h>
#include <utility>

namespace Halvorin::System {

namespace {

// What a signal handler may look at: paths on the heap, each in a place of its own. There are never more than
// a few at once; one that found no place is only not seen by the handler.
constexpr int slotCount = 64;
std::array<std::atomic<char*>, slotCount> registeredPaths;
static_assert(std::atomic<char*>::is_always_lock_free);

int registerPath(const std::string& path)
{
    char* const copy = ::strdup(path.c_str());
    if (copy == nullptr)
        return -1;
    for (int slot = 0; slot < slotCount; ++slot) {
        char* expected = nullptr;
        if (registeredPaths[static_cast<std::size_t>(slot)].compare_exchange_strong(expected, copy))
            return slot;
    }
    std::free(copy);
    return -1;
}

void unregisterPath(int slot)
{
    if (slot >= 0)
        std::free(registeredPaths[static_cast<std::size_t>(slot)].exchange(nullptr));
}

} // namespace

TemporaryFile::TemporaryFile(const std::filesystem::path& start, const std::string& ending, unsigned mode)
{
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string path = start.native() + numberText(random()) + ending;
        const int slot = registerPath(path); // before there is anything to remove
        m_descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        const int error = errno;
        if (isOpen()) {
            m_path = path;
            m_slot = slot;
            return;
        }
        unregisterPath(slot);
        errno = error;
        if (error != EEXIST)
            return;
    }
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_path(std::exchange(other.m_path, {})), m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_slot(std::exchange(other.m_slot, -1))
{}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept
{
    std::swap(m_path, other.m_path);
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_slot, other.m_slot);
    return *this;
}

TemporaryFile::~TemporaryFile()
{
    close();
    removeFile();
}

bool TemporaryFile::close()
{
    return !isOpen() || ::close(std::exchange(m_descriptor, -1)) == 0;
}

void TemporaryFile::release() noexcept
{
    unregisterPath(std::exchange(m_slot, -1));
    m_path.clear();
}

void TemporaryFile::removeFile() noexcept
{
    if (m_path.empty())
        return;
    ::unlink(m_path.c_str());
    release();
}

void TemporaryFile::removeAll() noexcept
{
    for (const std::atomic<char*>& path : registeredPaths) {
        if (const char* const registered = path.load())
            ::unlink(registered);
    }
}

} // namespace Halvorin::System
