#include "actionlanguage/expressions/commaoperatorrule.h"

#include "actionlanguage/expressions/infixsweep.h"
#include "actionlanguage/runtime/basicexpressions.h"
#include "actionlanguage/runtime/linkexceptions.h"

namespace {

constexpr std::string_view ruleName = "comma";

/// One side of a comma: {"type", "expr"}.
LinkedExpression linkSide(const JsonValue& side, AbstractLinker& linker)
{
    const DataType expected = CompiledForm::typeAt(side, "type");
    LinkedExpression expression = linker.linkExpression(side.member("expr"));
    if (expression.type() != expected)
        throw WrongTypeException(expected, expression.type());
    return expression;
}

template <class T>
LinkedExpression joinedByComma(ExpressionPointer<void> left, ExpressionPointer<T> right)
{
    return ExpressionPointer<T>(
        std::make_unique<CommaOperatorExpression<T>>(std::move(left), std::move(right)));
}

} // namespace

bool CommaOperatorRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

void CommaOperatorRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (!standsIn(items))
        return;
    sweepInfix(items, text(), compiler, [](DataType, DataType right, const SourceSpan&) {
        return InfixForm{CompiledForm::rule(ruleName), right};
    });
}

LinkedExpression CommaOperatorRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    ExpressionPointer<void> left = discarded(linkSide(form.member("lhs"), linker));
    LinkedExpression right = linkSide(form.member("rhs"), linker);
    return right.visit([&](auto& node) { return joinedByComma(std::move(left), std::move(node)); });
}
