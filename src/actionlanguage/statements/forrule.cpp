#include "actionlanguage/statements/forrule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"

namespace {
constexpr std::string_view ruleName = "for";
}

bool ForRule::matches(const Token& token) const
{
    return token.is(KeywordId::for_);
}

bool ForRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

JsonValue ForRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    compiler.pushScope();
    expect(tokens, KeywordId::for_, LanguageError::unexpectedToken);
    expect(tokens, PunctuatorId::openParenthesis, LanguageError::expectedOpenParenthesis);
    JsonObject form = CompiledForm::rule(ruleName, 5);
    if (!tokens.take(PunctuatorId::semicolon))
        form.insert("init", compileInit(tokens, compiler));

    if (!tokens.nextIs(PunctuatorId::semicolon))
        form.insert("cond", compiler.compileCondition(tokens, false).form());
    expect(tokens, PunctuatorId::semicolon, LanguageError::expectedSemicolonToken);

    if (!tokens.nextIs(PunctuatorId::closeParenthesis))
        form.insert("iter", CompiledForm::typed(compiler.compileExpression(tokens, true)));
    expect(tokens, PunctuatorId::closeParenthesis, LanguageError::expectedCloseParenthesis);

    form.insert("loop", compiler.compileStatement(tokens));
    compiler.popScope();
    return form;
}

JsonValue ForRule::compileInit(TokenStream& tokens, AbstractCompiler& compiler) const
{
    if (m_declaration.matches(tokens.next()))
        return m_declaration.compile(tokens, compiler);
    return m_expression.compile(tokens, compiler);
}

LinkedStatement ForRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    LinkedStatement loop = linker.linkStatement(form.member("loop"));
    ExpressionPointer<void> iteration = linkDiscarded(form.member("iter"), linker);
    ExpressionPointer<bool> condition = linkConditionAt(form, "cond", linker);
    LinkedStatement init = linker.linkStatement(form.member("init"));
    return LinkedStatement(std::make_unique<ForStatement>(std::move(init), std::move(condition),
                                                          std::move(iteration), std::move(loop)));
}
