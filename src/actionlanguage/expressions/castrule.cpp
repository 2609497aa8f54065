#include "actionlanguage/expressions/castrule.h"

#include "actionlanguage/rules/compiledform.h"
#include "actionlanguage/runtime/basicexpressions.h"
#include "actionlanguage/types/conversions.h"

namespace {

constexpr std::string_view ruleName = "cast";

template <class From, class To>
LinkedExpression linkCast(LinkedExpression operand)
{
    return ExpressionPointer<To>(
        std::make_unique<CastExpression<From, To>>(operand.take<From>("invalid cast operation")));
}

} // namespace

bool CastRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

LinkedExpression CastRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const DataType from = CompiledForm::typeAt(form, "from");
    const DataType to = CompiledForm::typeAt(form, "to");
    if (!canCast(from, to))
        throw std::runtime_error("cannot link cast operator");
    LinkedExpression operand = linker.linkExpression(form.member("expr"));
    if (to == DataType::real)
        return linkCast<std::int32_t, double>(std::move(operand));
    if (from == DataType::real)
        return linkCast<double, bool>(std::move(operand));
    return linkCast<std::int32_t, bool>(std::move(operand));
}

ExpressionCompilationObject castTo(ExpressionCompilationObject expression, DataType to,
                                   const SourceSpan& span)
{
    const DataType from = expression.type();
    if (from == to)
        return expression;
    if (!canCast(from, to))
        throw InvalidCastException(from, to, span);
    const unsigned depth = expression.depth() + 1;
    JsonObject form = CompiledForm::rule(ruleName);
    form.insert("from", CompiledForm::spelling(from));
    form.insert("to", CompiledForm::spelling(to));
    form.insert("expr", std::move(expression).form());
    return ExpressionCompilationObject(std::move(form), to, depth);
}
