#include "actionlanguage/statements/statementforms.h"

#include "actionlanguage/runtime/basicexpressions.h"
#include "actionlanguage/runtime/linkexceptions.h"
#include "actionlanguage/statements/expect.h"

JsonValue expressionStatementForm(ExpressionCompilationObject expression)
{
    JsonObject form = CompiledForm::rule("expr", 3);
    form.insert("type", CompiledForm::spelling(expression.type()));
    form.insert("expr", std::move(expression).form());
    return form;
}

JsonValue compileParenthesisedCondition(TokenStream& tokens, AbstractCompiler& compiler)
{
    expect(tokens, PunctuatorId::openParenthesis, LanguageError::expectedOpenParenthesis);
    JsonValue condition = compiler.compileCondition(tokens, false).form();
    expect(tokens, PunctuatorId::closeParenthesis, LanguageError::expectedCloseParenthesis);
    return condition;
}

ExpressionPointer<bool> linkConditionAt(const JsonValue& form, std::string_view key, AbstractLinker& linker)
{
    LinkedExpression condition = linker.linkExpression(form.member(key));
    if (!condition.holds<bool>())
        throw WrongTypeException(DataType::boolean, condition.type());
    return condition.take<bool>("invalid types");
}

ExpressionPointer<void> linkDiscarded(const JsonValue& form, AbstractLinker& linker)
{
    const DataType expected = CompiledForm::typeAt(form, "type");
    LinkedExpression expression = linker.linkExpression(form.member("expr"));
    if (expression.type() != expected)
        throw WrongTypeException(expected, expression.type());
    return discarded(std::move(expression));
}
