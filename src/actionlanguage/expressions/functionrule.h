#ifndef FUNCTIONRULE_H
#define FUNCTIONRULE_H

#include "actionlanguage/operators/functionoperators.h"
#include "actionlanguage/rules/expressionrule.h"

#include <string>

/// The functions of one name.
class FunctionRule : public AbstractExpressionRuleImpl
{
public:
    FunctionRule(std::string_view name, FunctionOverloads overloads);

    const std::string& name() const { return m_name; }
    const FunctionOverloads& overloads() const { return m_overloads; }

    bool canLink(const JsonValue& form) const override;
    void apply(ItemList& items, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const override;

private:
    ExpressionItem call(const Token& name, std::vector<ExpressionCompilationObject> arguments,
                        const SourceSpan& span) const;
    const AbstractFunctionOperatorImpl& resolve(const Token& name,
                                                const std::vector<DataType>& argumentTypes) const;
    const AbstractFunctionOperatorImpl* findExact(const std::vector<DataType>& argumentTypes) const;

    std::string m_name;
    FunctionOverloads m_overloads;
};

/// The rules of several functions, in the order in which they are looked for.
using FunctionRules = std::vector<std::unique_ptr<const FunctionRule>>;

#endif
