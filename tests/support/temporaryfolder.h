#ifndef TEMPORARYFOLDER_H
#define TEMPORARYFOLDER_H

#include <filesystem>
#include <string>
#include <string_view>

/// A folder of a test's own, removed with all that is in it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

    /// Makes a file with this content and gives its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;

    /// The content of a file; a test that reads one that is not there fails with an exception.
    std::string read(const std::filesystem::path& name) const;

private:
    std::filesystem::path m_path;
};

#endif
