#include "actionlanguage/expressions/variablerule.h"

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/runtime/basicexpressions.h"

namespace {

constexpr std::string_view ruleName = "var";

template <class T>
LinkedExpression reading(std::shared_ptr<T> storage)
{
    return ExpressionPointer<T>(std::make_unique<VariableExpression<T>>(std::move(storage)));
}

} // namespace

ExpressionCompilationObject VariableRule::compile(const VariableReference& variable) const
{
    JsonObject form = CompiledForm::rule(ruleName, 3);
    form.insert("id", variable.id);
    form.insert("type", CompiledForm::spelling(variable.type));
    return ExpressionCompilationObject(std::move(form), variable.type);
}

bool VariableRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

LinkedExpression VariableRule::link(const JsonValue& form, const AbstractLinker& linker) const
{
    const LinkedVariable& variable = linker.findVariable(form.member("id").asString());
    checkVariableType(form, variable);
    return variable.visit([](const auto& storage) { return reading(storage); });
}
