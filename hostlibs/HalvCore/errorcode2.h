#ifndef HALVCORE_ERRORCODE2_H
#define HALVCORE_ERRORCODE2_H

#include "HalvCore/errorcode.h"
#include "HalvCore/halvcoreexport.h"

#include <string>

namespace Halvorin::System {

/// The error of the Expected interfaces: a code, and what it is about.
class HALVCORE_EXPORT ErrorCode2
{
public:
    ErrorCode2(FileError error, std::string detail = {}) : m_code(error), m_detail(std::move(detail)) {}
    ErrorCode2(SystemError error, std::string detail = {}) : m_code(error), m_detail(std::move(detail)) {}

    const ErrorCode& code() const { return m_code; }

    /// The words of the code, and behind a colon the detail if there is one.
    std::string message() const;

    friend bool operator==(const ErrorCode2&, const ErrorCode2&) = default;

private:
    ErrorCode m_code;
    std::string m_detail;
};

} // namespace Halvorin::System

#endif
