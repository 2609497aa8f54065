#ifndef EXPONENTS_H
#define EXPONENTS_H

#include <string_view>

/// Refuses a JSON text with a number such as 1e-9: the engine's JSON takes an exponent only behind a decimal
/// point, and reads what stands before the "e" as an integer.
/// @throws std::runtime_error that names the line and the number
void refuseSplitExponents(std::string_view json);

#endif
