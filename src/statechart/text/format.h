#ifndef FORMAT_H
#define FORMAT_H

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

/// What formatText() raises when a format text is not one of the standard, names an argument that is not
/// there, or asks of an argument what its type cannot give.
class FormatException : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// One value that a format text can show: exactly the kinds that messages and actions have.
class FormatArgument
{
public:
    using Value = std::variant<bool, char, std::int64_t, std::uint64_t, double, std::string_view>;

    FormatArgument(bool value) : m_value(value) {}
    FormatArgument(char value) : m_value(value) {}
    FormatArgument(int value) : m_value(std::int64_t{value}) {}
    FormatArgument(long value) : m_value(std::int64_t{value}) {}
    FormatArgument(long long value) : m_value(std::int64_t{value}) {}
    FormatArgument(unsigned value) : m_value(std::uint64_t{value}) {}
    FormatArgument(unsigned long value) : m_value(std::uint64_t{value}) {}
    FormatArgument(unsigned long long value) : m_value(std::uint64_t{value}) {}
    FormatArgument(double value) : m_value(value) {}
    FormatArgument(const char* value) : m_value(std::string_view(value)) {}
    FormatArgument(std::string_view value) : m_value(value) {}
    FormatArgument(const std::string& value) : m_value(std::string_view(value)) {}

    const Value& value() const { return m_value; }

private:
    Value m_value;
};

/// The largest width or precision. It stands far above honest use: a format text may come from an action, and
/// ten bytes of it must not take the machine's memory.
inline constexpr int formatMaximumWidth = 1'000'000;

/// formatText() over a list of arguments that is known only at run time.
std::string formatArguments(std::string_view format, std::initializer_list<FormatArgument> arguments);

/// The text of `format` with its replacement fields filled, to the letter as the standard's std::format
/// words it (a double without a precision in its shortest form: 100000.0 is "1e+05"), whatever the
/// locale. This is the only formatter in the tree.
///
///     formatText("'{}' is not used", "x")  ->  "'x' is not used"
///
/// @throws FormatException for a text or an argument that std::format would refuse, and for a width or a
/// precision above formatMaximumWidth.
template <class... Arguments>
std::string formatText(std::string_view format, const Arguments&... arguments)
{
    return formatArguments(format, {FormatArgument(arguments)...});
}

#endif
