#include "HostSupport/fileversion.h"

#include "HostSupport/firstline.h"

#include <charconv>
#include <map>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using Halvorin::System::FilePath;

namespace {

constexpr std::chrono::seconds askingTime{5};

/// "Python 3.11.2" and what may stand behind it.
std::optional<FileVersion> versionFromAnswer(std::string_view line)
{
    constexpr std::string_view start = "Python ";
    if (!line.starts_with(start))
        return std::nullopt;
    const char* end = line.data() + line.size();
    FileVersion version;
    const auto major = std::from_chars(line.data() + start.size(), end, version.major);
    if (major.ec != std::errc() || major.ptr == end || *major.ptr != '.' || version.major < 0)
        return std::nullopt;
    const auto minor = std::from_chars(major.ptr + 1, end, version.minor);
    if (minor.ec != std::errc() || version.minor < 0)
        return std::nullopt;
    return version;
}

/// When a file last changed, in seconds and nanoseconds; nothing unless it is a program.
std::optional<std::pair<std::time_t, long>> timeOfChange(const FilePath& file)
{
    struct stat status
    {};
    const char* name = file.toStdPath().c_str();
    if (::stat(name, &status) != 0 || !S_ISREG(status.st_mode) || ::access(name, X_OK) != 0)
        return std::nullopt;
    return std::pair(status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
}

struct Answer
{
    std::pair<std::time_t, long> time;
    std::optional<FileVersion> version;
};

} // namespace

std::optional<FileVersion> sp_GetFileVersion(const FilePath& file)
{
    static std::mutex mutex;
    static std::map<FilePath, Answer> answers;

    const auto time = timeOfChange(file);
    if (!time)
        return std::nullopt;
    const std::lock_guard lock(mutex);
    const auto known = answers.find(file);
    if (known != answers.end() && known->second.time == *time)
        return known->second.version;
    const Answer answer{*time, versionFromAnswer(HostSupport::firstLineOf(file, {"--version"}, askingTime))};
    answers.insert_or_assign(file, answer);
    return answer.version;
}
