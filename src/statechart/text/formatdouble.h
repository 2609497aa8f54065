#ifndef FORMATDOUBLE_H
#define FORMATDOUBLE_H

#include "statechart/text/formatspec.h"

#include <string>

/// The digits of a finite or infinite double, or of a "nan", without its sign, as type, precision and '#'
/// of a specification ask for them. Width, sign and fill are the caller's.
std::string doubleDigits(double magnitude, const FormatSpec& spec);

#endif
