#ifndef UNARYOPERATORS_H
#define UNARYOPERATORS_H

#include "actionlanguage/operators/operatorimplementations.h"

#include <span>
#include <string_view>

/// One unary operator: its text, and the types that it takes. The result is of the operand's type.
struct UnaryOperator
{
    std::string_view text;
    UnaryImplementations (*implementations)();
};

/// "++" or "--", which take a variable; what stands for the two places differs in the value that it yields.
struct IncDecOperator
{
    std::string_view text;
    IncDecImplementations (*prefix)(); ///< yields the new value
    IncDecImplementations (*suffix)(); ///< yields the old one
};

/// Both tables are in the order in which the operators are looked for.
/// To add one, add a row in unaryoperators.cpp.
std::span<const UnaryOperator> unaryOperators();
std::span<const IncDecOperator> incDecOperators();

#endif
