#ifndef HALVCORE_EXPECTED_H
#define HALVCORE_EXPECTED_H

#include "HalvCore/halvcoreexport.h"

#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace Halvorin::System {

/// Raised when the value of an Expected is read and there is none. what() is the message of the error.
template <class Error>
class HALVCORE_EXPORT bad_expected_access : public std::exception
{
public:
    explicit bad_expected_access(Error error) : m_error(std::move(error)), m_message(m_error.message()) {}

    const char* what() const noexcept override { return m_message.c_str(); }
    const Error& error() const { return m_error; }

private:
    Error m_error;
    std::string m_message;
};

/// A value or an error.
///
///     const Expected<bool, ErrorCode2> exists = package.partExists(uri);
///     if (exists.value())   // raises bad_expected_access<ErrorCode2> when the question failed
template <class T, class Error>
class [[nodiscard]] Expected
{
public:
    Expected(T value) : m_content(std::in_place_index<0>, std::move(value)) {}
    Expected(Error error) : m_content(std::in_place_index<1>, std::move(error)) {}

    bool hasValue() const { return m_content.index() == 0; }
    explicit operator bool() const { return hasValue(); }

    /// @throws bad_expected_access<Error> when there is no value.
    T& value() &
    {
        check();
        return std::get<0>(m_content);
    }
    const T& value() const&
    {
        check();
        return std::get<0>(m_content);
    }
    T value() &&
    {
        check();
        return std::move(std::get<0>(m_content));
    }

    /// As value(). @throws bad_expected_access<Error> when there is no value.
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }

    /// Only when there is no value.
    const Error& error() const { return std::get<1>(m_content); }

private:
    void check() const
    {
        if (!hasValue())
            throw bad_expected_access<Error>(std::get<1>(m_content));
    }

    std::variant<T, Error> m_content;
};

/// Done, or an error.
template <class Error>
class [[nodiscard]] Expected<void, Error>
{
public:
    Expected() = default;
    Expected(Error error) : m_error(std::move(error)) {}

    bool hasValue() const { return !m_error; }
    explicit operator bool() const { return hasValue(); }

    /// @throws bad_expected_access<Error> when it was not done.
    void value() const
    {
        if (m_error)
            throw bad_expected_access<Error>(*m_error);
    }

    /// Only when it was not done.
    const Error& error() const { return *m_error; }

private:
    std::optional<Error> m_error;
};

} // namespace Halvorin::System

#endif
