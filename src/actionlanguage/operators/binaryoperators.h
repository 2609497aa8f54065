#ifndef BINARYOPERATORS_H
#define BINARYOPERATORS_H

#include "actionlanguage/operators/operatorimplementations.h"

#include <span>
#include <string_view>

/// One binary operator: its text, and what it means for each pair of types. A pair that has no
/// implementation is an error of the language; no operand is ever promoted.
struct BinaryOperator
{
    std::string_view text;
    BinaryImplementations (*implementations)();
};

/// All of them, highest precedence first.
/// To add one, add a row in binaryoperators.cpp; its place in the table is its precedence.
std::span<const BinaryOperator> binaryOperators();

#endif
