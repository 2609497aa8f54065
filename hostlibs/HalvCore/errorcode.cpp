#include "HalvCore/errorcode.h"

#include <array>
#include <cstddef>

namespace Halvorin::System {

namespace {

template <class Code>
struct Row
{
    Code code;
    const char* text;
};

constexpr std::array<Row<FileError>, 9> fileErrors{{
    {FileError::notFound, "the file does not exist"},
    {FileError::accessDenied, "access is denied"},
    {FileError::cannotOpen, "the file cannot be opened"},
    {FileError::alreadyExists, "it exists already"},
    {FileError::isDirectory, "it is a folder"},
    {FileError::readFailed, "the file cannot be read"},
    {FileError::writeFailed, "the file cannot be written"},
    {FileError::damaged, "the file is damaged"},
    {FileError::tooLarge, "the file is too large"},
}};

constexpr std::array<Row<SystemError>, 4> systemErrors{{
    {SystemError::unknown, "unknown error"},
    {SystemError::notImplemented, "not implemented"},
    {SystemError::invalidText, "the text is not valid UTF-8"},
    {SystemError::invalidArgument, "invalid argument"},
}};

template <class Code, std::size_t count>
const char* textOf(const std::array<Row<Code>, count>& table, std::uint32_t code)
{
    for (const Row<Code>& row : table) {
        if (static_cast<std::uint32_t>(row.code) == code)
            return row.text;
    }
    return "unknown error";
}

} // namespace

ErrorCode::ErrorCode(FileError error) : m_family(Family::file), m_code(static_cast<std::uint32_t>(error)) {}

ErrorCode::ErrorCode(SystemError error) : m_family(Family::system), m_code(static_cast<std::uint32_t>(error))
{}

String ErrorCode::message() const
{
    switch (m_family) {
    case Family::none:
        break;
    case Family::file:
        return textOf(fileErrors, m_code);
    case Family::system:
        return textOf(systemErrors, m_code);
    }
    return {};
}

} // namespace Halvorin::System
