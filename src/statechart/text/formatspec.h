#ifndef FORMATSPEC_H
#define FORMATSPEC_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// What an argument is to a format specification: each kind takes other presentations and options.
enum class FormatKind
{
    boolean,
    character,
    integer,
    real,
    text,
};

/// The part of a replacement field behind its ":":
/// [[fill]align] [sign] ["#"] ["0"] [width] ["." precision] ["L"] [type].
struct FormatSpec
{
    std::string_view fill = " "; ///< one character of UTF-8, a piece of the format text
    char align = 0;              ///< '<', '^', '>', or 0 for the kind's own
    char sign = '-';
    bool alternate = false;
    bool zero = false;
    int width = 0;
    int precision = -1; ///< -1 when there is none
    char type = 0;      ///< 0 when there is none
};

/// Gives the value of a nested field, a width or precision taken from an argument. It is called with the
/// position behind the "{" and moves it behind the "}".
using NestedFieldReader = std::function<int(std::size_t& position)>;

/// Reads what stands in a field from `position` of `format` and leaves `position` at the "}" that
/// ends it.
/// @throws FormatException for anything that the standard does not allow with an argument of `kind`.
FormatSpec parseFormatSpec(std::string_view format, std::size_t& position, FormatKind kind,
                           const NestedFieldReader& readNestedField);

/// A number without sign and leading zeros, as widths and argument numbers are. Leaves `position` behind it.
/// @throws FormatException when it does not fit an int.
int parseFormatNumber(std::string_view format, std::size_t& position);

#endif
