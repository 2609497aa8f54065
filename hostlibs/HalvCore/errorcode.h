#ifndef HALVCORE_ERRORCODE_H
#define HALVCORE_ERRORCODE_H

#include "HalvCore/halvcoreexport.h"
#include "HalvCore/string.h"

#include <cstdint>

namespace Halvorin::System {

/// What can go wrong with a file. To add one, append it here and in the table of errorcode.cpp.
enum class FileError : std::uint32_t
{
    notFound = 1,
    accessDenied = 2,
    cannotOpen = 3,
    alreadyExists = 4,
    isDirectory = 5,
    readFailed = 6,
    writeFailed = 7,
    damaged = 8,
    tooLarge = 9,
};

/// What can go wrong elsewhere. To add one, append it here and in the table of errorcode.cpp.
enum class SystemError : std::uint32_t
{
    unknown = 1,
    notImplemented = 2,
    invalidText = 3,
    invalidArgument = 4,
};

/// No error, or one.
///
///     ErrorCode error;
///     database.importExamples(path, error);
///     if (error)
///         Application::instance().logger().warning(error);
class HALVCORE_EXPORT ErrorCode
{
public:
    ErrorCode() = default;
    explicit ErrorCode(FileError error);
    explicit ErrorCode(SystemError error);

    /// True when there is an error.
    explicit operator bool() const { return m_family != Family::none; }

    void assign(const ErrorCode& other) { *this = other; }
    void assignUnknown() { *this = ErrorCode(SystemError::unknown); }
    void assignNotImplemented() { *this = ErrorCode(SystemError::notImplemented); }

    /// The error in words; empty when there is none.
    String message() const;

    friend bool operator==(const ErrorCode&, const ErrorCode&) = default;

private:
    enum class Family : std::uint8_t
    {
        none,
        file,
        system,
    };

    Family m_family = Family::none;
    std::uint32_t m_code = 0;
};

} // namespace Halvorin::System

#endif
