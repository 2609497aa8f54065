#ifndef BUILDRULES_H
#define BUILDRULES_H

#include "actionlanguage/expressions/castrule.h"
#include "actionlanguage/expressions/functionrule.h"
#include "actionlanguage/expressions/variablerule.h"
#include "actionlanguage/rules/statementrule.h"

/// The rules of expressions, highest precedence first: suffix "++" and "--", functions, their prefix forms,
/// unary, binary and assignment operators, and the comma last.
std::vector<ExpressionRule> constructExpressionRules(FunctionRules functionRules);

/// The rules that a compiler and a linker share. They never change.
class BuildRules
{
public:
    /// @param deviceFunctions functions beside the general library; they come before it.
    explicit BuildRules(FunctionRules deviceFunctions);

    const std::vector<ExpressionRule>& expressionRules() const { return m_expressionRules; }
    const std::vector<LiteralRule>& literalRules() const { return m_literalRules; }
    const std::vector<StatementRule>& statementRules() const { return m_statementRules; }
    const VariableRule& variableRule() const { return m_variableRule; }
    const CastRule& castRule() const { return m_castRule; }

private:
    std::vector<ExpressionRule> m_expressionRules;
    std::vector<LiteralRule> m_literalRules;
    std::vector<StatementRule> m_statementRules;
    VariableRule m_variableRule;
    CastRule m_castRule;
};

#endif
