#include "support/temporaryfolder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

TemporaryFolder::TemporaryFolder()
{
    std::random_device random;
    do {
        m_path = std::filesystem::temp_directory_path() / ("halvorin-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(m_path));
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TemporaryFolder::write(const std::filesystem::path& name,
                                             std::string_view content) const
{
    const std::filesystem::path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << content << std::flush;
    if (!stream)
        throw std::runtime_error("cannot write " + file.native());
    return file;
}

std::string TemporaryFolder::read(const std::filesystem::path& name) const
{
    std::ifstream stream(m_path / name, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + (m_path / name).native());
    return {std::istreambuf_iterator<char>(stream), {}};
}
