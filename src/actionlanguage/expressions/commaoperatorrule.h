#ifndef COMMAOPERATORRULE_H
#define COMMAOPERATORRULE_H

#include "actionlanguage/expressions/operatorrule.h"

/// "a, b" on operands of any types; the value is that of b.
class CommaOperatorRule : public AbstractOperatorRule
{
public:
    CommaOperatorRule() : AbstractOperatorRule(",") {}

    bool canLink(const JsonValue& form) const override;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
