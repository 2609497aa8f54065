#ifndef BINARYOPERATORRULE_H
#define BINARYOPERATORRULE_H

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/operators/binaryoperators.h"

/// "a + b". Each operator has a sweep of its own, so operators of one C precedence level do not associate
/// with each other: "a - b + c" is a - (b + c).
class BinaryOperatorRule : public AbstractOperatorRule
{
public:
    BinaryOperatorRule(std::string_view text, BinaryImplementations implementations);

    bool canLink(const JsonValue& form) const override;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;

private:
    BinaryImplementations m_implementations;
};

#endif
