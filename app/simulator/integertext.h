#ifndef INTEGERTEXT_H
#define INTEGERTEXT_H

#include "statechart/devicevalues.h"
#include "statechart/json/jsonvalue.h"

#include <optional>

/// The integer that a value of a stimulus stands for: a JSON integer, or the text of one, for numbers that
/// JSON's 32 bits do not hold: "4294967296", "-5", "0xff", "0b1010". None for any other value. What is not
/// negative comes unsigned from a text.
std::optional<BusValue> integerOf(const JsonValue& value);

#endif
