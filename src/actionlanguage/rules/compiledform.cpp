#include "actionlanguage/rules/compiledform.h"

#include "actionlanguage/runtime/linkexceptions.h"

namespace CompiledForm {

JsonObject rule(std::string_view name)
{
    JsonObject form;
    form.reserve(4); // as many as most rules have
    form.insert("rule", name);
    return form;
}

JsonObject typed(ExpressionCompilationObject expression)
{
    JsonObject form;
    form.reserve(2);
    form.insert("type", spelling(expression.type()));
    form.insert("expr", std::move(expression).form());
    return form;
}

JsonObject variable(DataType type, std::string_view id)
{
    JsonObject form;
    form.reserve(2);
    form.insert("type", spelling(type));
    form.insert("id", id);
    return form;
}

JsonValue spelling(DataType type)
{
    return typeName(type);
}

bool isRule(const JsonValue& value, std::string_view name)
{
    return value.has("rule") && value.member("rule").equals(name);
}

bool isOperator(const JsonValue& value, std::string_view name, std::string_view op)
{
    return isRule(value, name) && value.has("op") && value.member("op").equals(op);
}

DataType typeAt(const JsonValue& value, std::string_view key)
{
    return linkedType(value.member(key).asString());
}

} // namespace CompiledForm
