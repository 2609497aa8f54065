#include "actionlanguage/buildrules.h"

#include "actionlanguage/expressions/assignmentoperatorrule.h"
#include "actionlanguage/expressions/binaryoperatorrule.h"
#include "actionlanguage/expressions/commaoperatorrule.h"
#include "actionlanguage/expressions/incdecrules.h"
#include "actionlanguage/expressions/literalrules.h"
#include "actionlanguage/expressions/unaryoperatorrule.h"
#include "actionlanguage/functions/functionlibrary.h"
#include "actionlanguage/statements/statementrules.h"

namespace {

FunctionRules allFunctionRules(FunctionRules deviceFunctions)
{
    FunctionRules rules = std::move(deviceFunctions);
    for (auto& rule : constructFunctionRules())
        rules.push_back(std::move(rule));
    return rules;
}

} // namespace

std::vector<ExpressionRule> constructExpressionRules(FunctionRules functionRules)
{
    constexpr std::size_t operatorRules = 38;
    std::vector<ExpressionRule> rules;
    rules.reserve(operatorRules + functionRules.size());
    for (const IncDecOperator& row : incDecOperators())
        rules.emplace_back(std::make_unique<SuffixIncDecRule>(row.text, row.suffix()));
    for (auto& rule : functionRules)
        rules.emplace_back(std::move(rule));
    for (const IncDecOperator& row : incDecOperators())
        rules.emplace_back(std::make_unique<PrefixIncDecRule>(row.text, row.prefix()));
    for (const UnaryOperator& row : unaryOperators())
        rules.emplace_back(std::make_unique<UnaryOperatorRule>(row.text, row.implementations()));
    for (const BinaryOperator& row : binaryOperators())
        rules.emplace_back(std::make_unique<BinaryOperatorRule>(row.text, row.implementations()));
    for (const AssignmentOperator& row : assignmentOperators())
        rules.emplace_back(std::make_unique<AssignmentOperatorRule>(row.text, row.implementations()));
    rules.emplace_back(std::make_unique<CommaOperatorRule>());
    return rules;
}

BuildRules::BuildRules(FunctionRules deviceFunctions)
    : m_expressionRules(constructExpressionRules(allFunctionRules(std::move(deviceFunctions)))),
      m_literalRules(constructLiteralRules()), m_statementRules(constructStatementRules())
{}
