#include "actionlanguage/expressions/binaryoperatorrule.h"

#include "actionlanguage/expressions/infixsweep.h"
#include "actionlanguage/tokens/compilationexception.h"

namespace {
constexpr std::string_view ruleName = "binop";
}

BinaryOperatorRule::BinaryOperatorRule(std::string_view text, BinaryImplementations implementations)
    : AbstractOperatorRule(text), m_implementations(std::move(implementations))
{}

bool BinaryOperatorRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isOperator(form, ruleName, text());
}

void BinaryOperatorRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (!standsIn(items))
        return;
    sweepInfix(items, text(), compiler, [&](DataType left, DataType right, const SourceSpan& operatorSpan) {
        const auto* implementation = findImplementation(m_implementations, left, right);
        if (!implementation)
            throw CompilationException(LanguageError::noBinaryOperator, operatorSpan);
        return InfixForm{operatorForm(ruleName), implementation->resultType()};
    });
}

LinkedExpression BinaryOperatorRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const JsonValue& left = form.member("lhs");
    const JsonValue& right = form.member("rhs");
    const DataType leftType = CompiledForm::typeAt(left, "type");
    const DataType rightType = CompiledForm::typeAt(right, "type");
    const auto& implementation =
        linkedImplementation(findImplementation(m_implementations, leftType, rightType));
    LinkedExpression leftExpression = linker.linkExpression(left.member("expr"));
    LinkedExpression rightExpression = linker.linkExpression(right.member("expr"));
    return implementation.createExpression(std::move(leftExpression), std::move(rightExpression));
}
