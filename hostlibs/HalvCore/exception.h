#ifndef HALVCORE_EXCEPTION_H
#define HALVCORE_EXCEPTION_H

#include "HalvCore/errorcode.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/string.h"

#include <exception>

namespace Halvorin::System {

/// Base of the exceptions of these libraries.
class HALVCORE_EXPORT Exception : public std::exception
{
public:
    explicit Exception(String message) : m_message(std::move(message)) {}

    const char* what() const noexcept override { return m_message.c_str(); }

private:
    String m_message;
};

/// An exception that stands for an ErrorCode.
class HALVCORE_EXPORT AbstractErrorCodeException : public Exception
{
public:
    using Exception::Exception;

    virtual const ErrorCode& errorCode() const = 0;
};

/// Carries an ErrorCode to whoever called the throwing form of an operation; what() is its message.
class HALVCORE_EXPORT ErrorCodeException : public AbstractErrorCodeException
{
public:
    explicit ErrorCodeException(const ErrorCode& code);

    const ErrorCode& errorCode() const override { return m_code; }

private:
    ErrorCode m_code;
};

} // namespace Halvorin::System

#endif
