#include "spool.h"

#include "standardstreams.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace {

std::runtime_error failure(const std::string& what)
{
    return std::runtime_error(what + ": " + std::generic_category().message(errno));
}

void copyStandardInput(const std::string& path, std::size_t limit)
{
    std::ofstream file(path, std::ios::binary);
    std::array<char, 65536> block{};
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw failure("cannot read standard input");
        if (count == 0)
            break;
        if (static_cast<std::size_t>(count) > limit)
            throw std::runtime_error("standard input is too large");
        limit -= static_cast<std::size_t>(count);
        file.write(block.data(), count);
    }
    file.close();
    if (!file)
        throw failure("cannot keep standard input in a temporary file");
}

} // namespace

SpoolFile::SpoolFile()
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error)
        throw std::runtime_error("cannot use the folder for temporary files, which TMPDIR can name: " +
                                 error.message());
    m_file = Halvorin::System::TemporaryFile(folder / "halvorin-", "", 0600);
    if (!m_file.isOpen())
        throw failure("cannot make a temporary file in '" + folder.native() + "'");
    m_file.close();
}

InputPath::InputPath(const std::string& argument, std::size_t limit) : m_argument(argument)
{
    if (argument != "-")
        return;
    m_spool.emplace();
    copyStandardInput(m_spool->path(), limit);
}

OutputPath::OutputPath(const std::string& argument) : m_argument(argument)
{
    if (argument == "-")
        m_spool.emplace();
}

void OutputPath::deliver() const
{
    if (!m_spool)
        return;
    std::ifstream file(m_spool->path(), std::ios::binary);
    std::array<char, 65536> block{};
    while (file.read(block.data(), block.size()) || file.gcount() > 0)
        StandardStreams::print({block.data(), static_cast<std::size_t>(file.gcount())});
    if (file.bad())
        throw failure("cannot read a temporary file back");
}
