#include "Python/interpreterfolders.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>

using Halvorin::System::FilePath;
namespace fs = std::filesystem;

namespace {

constexpr std::string_view interpreterName = "python3.";

/// Below the home, the folder that has one folder a Python, each with its programs in "bin".
constexpr const char* managersFolders[] = {
    ".pyenv/versions",
    ".local/share/uv/python",
    ".local/share/mise/installs/python",
    ".asdf/installs/python",
};

/// What stands in a folder, by name; nothing when it cannot be read.
std::vector<fs::path> entriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    std::ranges::sort(entries);
    return entries;
}

/// N of "python3.N".
std::optional<unsigned> minorVersion(const std::string& name)
{
    if (!name.starts_with(interpreterName))
        return std::nullopt;
    unsigned number = 0;
    const char* end = name.data() + name.size();
    const auto [behind, error] = std::from_chars(name.data() + interpreterName.size(), end, number);
    return error == std::errc() && behind == end ? std::optional(number) : std::nullopt;
}

struct Candidate
{
    unsigned minor;
    fs::path path;
};

std::vector<Candidate> candidatesIn(const fs::path& folder)
{
    std::vector<Candidate> candidates;
    for (const fs::path& entry : entriesOf(folder)) {
        if (const auto minor = minorVersion(entry.filename().native()))
            candidates.push_back({*minor, entry});
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::minor);
    return candidates;
}

} // namespace

std::vector<fs::path> searchPathFolders(std::string_view searchPath)
{
    std::vector<fs::path> folders;
    while (!searchPath.empty()) {
        const std::string_view entry = searchPath.substr(0, searchPath.find(':'));
        searchPath.remove_prefix(std::min(entry.size() + 1, searchPath.size()));
        if (fs::path(entry).is_absolute())
            folders.emplace_back(entry);
    }
    return folders;
}

std::vector<fs::path> interpreterFolders(const InterpreterPlaces& places)
{
    std::vector<fs::path> folders = places.systemFolders;
    for (const fs::path& folder : searchPathFolders(places.searchPath)) {
        if (folder.filename() != "shims")
            folders.push_back(folder);
    }
    std::vector<fs::path> managers; // each has a folder a Python
    if (places.pyenvRoot.is_absolute())
        managers.push_back(places.pyenvRoot / "versions");
    if (places.home.is_absolute()) {
        for (const char* folder : managersFolders)
            managers.push_back(places.home / folder);
    }
    for (const fs::path& manager : managers) {
        for (const fs::path& python : entriesOf(manager))
            folders.push_back(python / "bin");
    }
    return folders;
}

std::vector<PythonInstallation> listInterpreters(const std::vector<fs::path>& folders,
                                                 const VersionOfFile& versionOf)
{
    std::vector<PythonInstallation> found;
    std::set<fs::path> seen;
    std::set<std::string> versions;
    for (const fs::path& folder : folders) {
        for (const auto& [minor, path] : candidatesIn(folder)) {
            std::error_code error;
            const fs::path file = fs::canonical(path, error);
            const bool isKnown =
                versions.contains(path.filename().native().substr(interpreterName.size() - 2));
            if (error || isKnown || !seen.insert(file).second)
                continue;
            const std::string version = versionOf(path);
            if (!version.empty() && versions.insert(version).second)
                found.push_back({coreCompany, version, path});
        }
    }
    return found;
}
