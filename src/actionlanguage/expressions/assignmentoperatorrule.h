#ifndef ASSIGNMENTOPERATORRULE_H
#define ASSIGNMENTOPERATORRULE_H

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/operators/assignmentoperators.h"

/// "a = b". The variable counts as initialised before the right side is looked at.
class AssignmentOperatorRule : public AbstractOperatorRule
{
public:
    AssignmentOperatorRule(std::string_view text, AssignmentImplementations implementations);

    bool canLink(const JsonValue& form) const override;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;

private:
    AssignmentImplementations m_implementations;
};

#endif
