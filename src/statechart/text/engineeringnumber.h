#ifndef ENGINEERINGNUMBER_H
#define ENGINEERINGNUMBER_H

#include "halvwidgetsexport.h"

#include <string_view>

/// The number that a text with an engineering suffix stands for: "10n" is 1e-8, "1meg" is 1e6.
///
/// The longest leading number is read in the general format of std::from_chars, never through the locale.
/// If it is not the whole text, the next character in either case is its scale: a f p n u m k g t for 1e-18
/// to 1e12, and "meg" for 1e6. Whatever stands behind the scale is ignored ("10pF" is 1e-11). A scale may
/// take the number out of the range of a double: "1e300t" is infinity, and "1e-320a" is 0.
///
/// @throws std::runtime_error "invalid format for number conversion" when there is no leading number, for
/// "inf" and "nan", when the leading number is itself out of range, and for any other character behind it.
HALVWIDGETS_EXPORT double parseEngineeringNumber(std::string_view text);

#endif
