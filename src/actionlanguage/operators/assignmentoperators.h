#ifndef ASSIGNMENTOPERATORS_H
#define ASSIGNMENTOPERATORS_H

#include "actionlanguage/operators/operatorimplementations.h"

#include <span>
#include <string_view>

/// One assignment operator: its text, and the pairs of types that it takes. The result is of the left type.
struct AssignmentOperator
{
    std::string_view text;
    AssignmentImplementations (*implementations)();
};

/// All of them, in the order in which they are looked for.
/// To add one, add a row in assignmentoperators.cpp.
std::span<const AssignmentOperator> assignmentOperators();

#endif
