#include "actionlanguage/expressions/incdecrules.h"

#include "actionlanguage/rules/rulesweeps.h"
#include "actionlanguage/tokens/compilationexception.h"

AbstractIncDecRule::AbstractIncDecRule(std::string_view text, IncDecImplementations implementations)
    : AbstractOperatorRule(text), m_implementations(std::move(implementations))
{}

bool AbstractIncDecRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isOperator(form, ruleName(), text());
}

LinkedExpression AbstractIncDecRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const DataType type = CompiledForm::typeAt(form, "type");
    const auto& implementation = linkedImplementation(findImplementation(m_implementations, type));
    const JsonValue& operand = form.member("expr");
    const LinkedVariable& variable = linker.findVariable(operand.member("id").asString());
    LinkedExpression expression = implementation.createExpression(variable);
    checkVariableType(operand, variable);
    return expression;
}

ExpressionItem AbstractIncDecRule::reduced(const ExpressionItem& operatorItem, const Token& name,
                                           const SourceSpan& span, AbstractCompiler& compiler) const
{
    const VariableReference variable = compiler.lookUpVariable(name, true, true);
    if (!findImplementation(m_implementations, variable.type))
        throw CompilationException(LanguageError::noUnaryOperator, operatorItem.span());

    return ExpressionItem(ExpressionCompilationObject(makeForm(variable), variable.type), span);
}

JsonObject AbstractIncDecRule::makeForm(const VariableReference& variable) const
{
    JsonObject form = operatorForm(ruleName());
    form.insert("type", CompiledForm::spelling(variable.type));
    form.insert("expr", CompiledForm::variable(variable.type, variable.id));
    return form;
}

void PrefixIncDecRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (items.size() < 2 || !standsIn(items))
        return;
    RightToLeftSweep sweep(items);
    while (!sweep.atEnd()) {
        const ExpressionItem& operatorItem = sweep.item();
        const bool isPrefix =
            operatorItem.isOperator(text()) && (!sweep.hasBefore() || sweep.before().isPunctuator());
        if (!isPrefix) {
            sweep.pass();
            continue;
        }
        if (!sweep.hasBehind())
            throw CompilationException(LanguageError::expectedExpressionAfter, operatorItem.span());
        const ExpressionItem& operandItem = sweep.behind();
        if (!operandItem.isIdentifier())
            throw CompilationException(LanguageError::assignmentNeedsIdentifier, operandItem.span());
        sweep.reduceWithBehind(1, reduced(operatorItem, *operandItem.token(),
                                          joined(operatorItem.span(), operandItem.span()), compiler));
    }
    sweep.finish();
}

std::string_view PrefixIncDecRule::ruleName() const
{
    return "pincdec";
}

void SuffixIncDecRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (items.size() < 2 || !standsIn(items))
        return;
    LeftToRightSweep sweep(items);
    while (!sweep.atEnd()) {
        const ExpressionItem& operatorItem = sweep.item();
        if (!operatorItem.isOperator(text()) || !sweep.hasBefore() || !sweep.before().isIdentifier()) {
            sweep.pass();
            continue;
        }
        const ExpressionItem& operandItem = sweep.before();
        sweep.reduceWithBefore(1, reduced(operatorItem, *operandItem.token(),
                                          joined(operandItem.span(), operatorItem.span()), compiler));
    }
    sweep.finish();
}

std::string_view SuffixIncDecRule::ruleName() const
{
    return "sincdec";
}
