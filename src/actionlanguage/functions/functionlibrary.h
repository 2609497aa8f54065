#ifndef FUNCTIONLIBRARY_H
#define FUNCTIONLIBRARY_H

#include "actionlanguage/expressions/functionrule.h"

/// The functions that every action can call: mathematics, "max" and "min", "print" and "format".
/// To add one, add a row in mathfunctions.cpp or textfunctions.cpp.
FunctionRules constructFunctionRules();

/// Its two halves, each appended in its order.
void appendMathFunctions(FunctionRules& rules);
void appendTextFunctions(FunctionRules& rules);

#endif
