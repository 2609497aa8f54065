#ifndef SIGNALVALUE_H
#define SIGNALVALUE_H

#include "simulator/signal.h"
#include "statechart/json/jsonvalue.h"

/// The lines that a value of a stimulus stands for: of a pin 0 or 1, of a bus an integer, or a text of one
/// for numbers that JSON's 32 bits do not hold: "4294967296", "-5", "0xff", "0b1010".
/// @throws std::runtime_error for any other value, and for a number that the bus has no lines for
std::uint64_t linesOf(const Signal& signal, const JsonValue& value);

#endif
