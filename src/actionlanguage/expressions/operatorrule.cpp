#include "actionlanguage/expressions/operatorrule.h"

#include "actionlanguage/runtime/linkexceptions.h"
#include "actionlanguage/tokens/compilationexception.h"

#include <algorithm>

bool AbstractOperatorRule::standsIn(const ItemList& items) const
{
    return std::ranges::any_of(items, [&](const ExpressionItem& item) { return item.isOperator(m_text); });
}

JsonObject AbstractOperatorRule::operatorForm(std::string_view ruleName, std::size_t members) const
{
    JsonObject form = CompiledForm::rule(ruleName, members);
    form.insert("op", m_text);
    return form;
}

ExpressionCompilationObject compileOperand(ExpressionItem& operand, const ExpressionItem& operatorItem,
                                           LanguageError code, AbstractCompiler& compiler)
{
    try {
        return compiler.compileItem(operand, true);
    } catch (const RequiresPositionException&) {
        throw CompilationException(code, operatorItem.span());
    }
}

ExpressionItem reducedItem(JsonObject form, DataType type, unsigned depth, const SourceSpan& span,
                           const SourceSpan& blamed)
{
    if (depth > languageMaximumDepth)
        throw NestingException(blamed);
    return ExpressionItem(ExpressionCompilationObject(std::move(form), type, depth), span);
}

void checkVariableType(const JsonValue& form, const LinkedVariable& variable)
{
    const DataType expected = CompiledForm::typeAt(form, "type");
    if (variable.type() != expected)
        throw VariableWrongTypeException(variable.id(), expected, variable.type());
}
