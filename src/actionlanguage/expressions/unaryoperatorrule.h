#ifndef UNARYOPERATORRULE_H
#define UNARYOPERATORRULE_H

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/operators/unaryoperators.h"

/// "-a". The operators sweep one after the other: "!-a" is one, "-!a" is an error.
class UnaryOperatorRule : public AbstractOperatorRule
{
public:
    UnaryOperatorRule(std::string_view text, UnaryImplementations implementations);

    bool canLink(const JsonValue& form) const override;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;

private:
    UnaryImplementations m_implementations;
};

#endif
