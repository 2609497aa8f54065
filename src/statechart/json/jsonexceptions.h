#ifndef JSONEXCEPTIONS_H
#define JSONEXCEPTIONS_H

#include "halvwidgetsexport.h"

#include <cstdint>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

/// Base of everything that reading, writing and using a JsonValue raises.
class HALVWIDGETS_EXPORT JsonException : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A value was used as what it is not. The code gives the text:
/// 0 "index out of bounds", 1 "invalid cast", 2 "invalid key", 3 "json value is not an array",
/// 4 "json value is not an object", any other "unknown error".
class HALVWIDGETS_EXPORT JsonTypeException : public JsonException
{
public:
    enum class Code : std::uint32_t
    {
        indexOutOfBounds,
        invalidCast,
        invalidKey,
        notAnArray,
        notAnObject,
    };

    explicit JsonTypeException(Code code);

    Code code() const { return m_code; }

private:
    Code m_code;
};

/// The text of a document is not JSON: "invalid JSON '{}' at position {}", with a short reason and the
/// offset, from 0, of the first byte that was not consumed.
class HALVWIDGETS_EXPORT JsonReadException : public JsonException
{
public:
    JsonReadException(std::string_view reason, std::uint64_t position);

    const std::string& reason() const { return m_reason; }
    std::uint64_t position() const { return m_position; }

protected:
    JsonReadException(const std::string& text, std::string_view reason, std::uint64_t position);

private:
    std::string m_reason;
    std::uint64_t m_position;
};

/// The same failure worded by place: "invalid JSON '{}' at line {} character {}". Both count from 1, the
/// character in bytes; LF, CR and CR LF each end one line.
class HALVWIDGETS_EXPORT JsonLineNumberReadException : public JsonReadException
{
public:
    /// Rewinds `stream` and counts up to the position of `failure`.
    JsonLineNumberReadException(const JsonReadException& failure, std::istream& stream);

    std::uint64_t line() const { return m_line; }
    std::uint64_t character() const { return m_character; }

private:
    struct Place
    {
        std::uint64_t line = 1;
        std::uint64_t character = 1;
    };
    static Place placeOf(std::uint64_t position, std::istream& stream);
    JsonLineNumberReadException(const JsonReadException& failure, Place place);

    std::uint64_t m_line;
    std::uint64_t m_character;
};

#endif
