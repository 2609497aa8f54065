#ifndef BOUNDEDFORM_H
#define BOUNDEDFORM_H

#include "statechart/json/jsonvalue.h"

/// Changes a compiled form so that it may be run, whatever it says: every round of a loop calls "countRound"
/// first, and what integers are divided by goes through "divisor" unless it is a literal that cannot fault.
/// Conditions and other operands stay as they are. The two functions are those of boundedRules().
void bound(JsonValue& form);

#endif
