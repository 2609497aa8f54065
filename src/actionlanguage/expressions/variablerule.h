#ifndef VARIABLERULE_H
#define VARIABLERULE_H

#include "actionlanguage/rules/abstractcompiler.h"
#include "actionlanguage/rules/abstractlinker.h"

/// Reading a variable: {"rule": "var", "id", "type"}.
class VariableRule
{
public:
    ExpressionCompilationObject compile(const VariableReference& variable) const;

    bool canLink(const JsonValue& form) const;

    /// @throws VariableNotFoundException, VariableWrongTypeException
    LinkedExpression link(const JsonValue& form, const AbstractLinker& linker) const;
};

#endif
