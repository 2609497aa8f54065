#ifndef NUMBERTEXT_H
#define NUMBERTEXT_H

#include <cstdint>
#include <string>

/// The text of a number in the standard's "{}": decimal for an integer, the shortest text that reads back
/// as the same value for a double ("1e-09"). Locales have no say.
std::string numberText(std::int64_t value);
std::string numberText(double value);

#endif
