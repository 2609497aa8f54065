#include "actionlanguage/functions/functionlibrary.h"

FunctionRules constructFunctionRules()
{
    FunctionRules rules;
    appendMathFunctions(rules);
    appendTextFunctions(rules);
    return rules;
}
