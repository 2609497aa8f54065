#ifndef INCDECRULES_H
#define INCDECRULES_H

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/operators/unaryoperators.h"

/// "++" and "--" on a variable.
class AbstractIncDecRule : public AbstractOperatorRule
{
public:
    AbstractIncDecRule(std::string_view text, IncDecImplementations implementations);

    bool canLink(const JsonValue& form) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;

protected:
    /// Which of the two it is, as the compiled form says it.
    virtual std::string_view ruleName() const = 0;

    /// The node for a variable: {"rule", "op", "type", "expr": {"type", "id"}}.
    JsonObject makeForm(const VariableReference& variable) const;

    /// What operator and variable are reduced to.
    ExpressionItem reduced(const ExpressionItem& operatorItem, const Token& name, const SourceSpan& span,
                           AbstractCompiler& compiler) const;

private:
    IncDecImplementations m_implementations;
};

class PrefixIncDecRule : public AbstractIncDecRule
{
public:
    using AbstractIncDecRule::AbstractIncDecRule;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;

protected:
    std::string_view ruleName() const override;
};

class SuffixIncDecRule : public AbstractIncDecRule
{
public:
    using AbstractIncDecRule::AbstractIncDecRule;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;

protected:
    std::string_view ruleName() const override;
};

#endif
