#include "actionlanguage/expressions/unaryoperatorrule.h"

#include "actionlanguage/rules/rulesweeps.h"
#include "actionlanguage/tokens/compilationexception.h"

namespace {
constexpr std::string_view ruleName = "unop";
}

UnaryOperatorRule::UnaryOperatorRule(std::string_view text, UnaryImplementations implementations)
    : AbstractOperatorRule(text), m_implementations(std::move(implementations))
{}

bool UnaryOperatorRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isOperator(form, ruleName, text());
}

void UnaryOperatorRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (!standsIn(items))
        return;
    RightToLeftSweep sweep(items);
    while (!sweep.atEnd()) {
        const ExpressionItem& operatorItem = sweep.item();
        const bool isUnary =
            operatorItem.isOperator(text()) && (!sweep.hasBefore() || sweep.before().isPunctuator());
        if (!isUnary) {
            sweep.pass();
            continue;
        }
        if (!sweep.hasBehind())
            throw CompilationException(LanguageError::expectedExpressionAfter, operatorItem.span());
        ExpressionItem& operandItem = sweep.behind();
        auto operand =
            compileOperand(operandItem, operatorItem, LanguageError::expectedExpressionAfter, compiler);

        const auto* implementation = findImplementation(m_implementations, operand.type());
        if (!implementation)
            throw CompilationException(LanguageError::noUnaryOperator, operatorItem.span());

        const DataType type = operand.type();
        const unsigned depth = operand.depth() + 1;
        JsonObject form = operatorForm(ruleName);
        form.insert("type", CompiledForm::spelling(type));
        form.insert("expr", std::move(operand).form());
        sweep.reduceWithBehind(1, reducedItem(std::move(form), type, depth,
                                              joined(operatorItem.span(), operandItem.span()),
                                              operatorItem.span()));
    }
    sweep.finish();
}

LinkedExpression UnaryOperatorRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const DataType type = CompiledForm::typeAt(form, "type");
    const auto& implementation = linkedImplementation(findImplementation(m_implementations, type));
    return implementation.createExpression(linker.linkExpression(form.member("expr")));
}
