#ifndef ABSTRACTLINKER_H
#define ABSTRACTLINKER_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"
#include "actionlanguage/runtime/linkedvariable.h"
#include "statechart/json/jsonvalue.h"

/// What rules ask of the linker that runs them. A compiled text that cannot be linked raises
/// std::runtime_error or one derived from it.
class AbstractLinker
{
public:
    virtual ~AbstractLinker() = default;

    virtual LinkedExpression linkExpression(const JsonValue& form) = 0;
    virtual LinkedStatement linkStatement(const JsonValue& form) = 0;

    /// @throws VariableNotFoundException
    virtual const LinkedVariable& findVariable(std::string_view id) const = 0;
};

#endif
