#include "actionlanguage/statements/dowhilerule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"

namespace {
constexpr std::string_view ruleName = "do";
}

bool DoWhileRule::matches(const Token& token) const
{
    return token.is(KeywordId::do_);
}

bool DoWhileRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

JsonValue DoWhileRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    compiler.pushScope();
    expect(tokens, KeywordId::do_, LanguageError::unexpectedToken);
    JsonValue loop = compiler.compileStatement(tokens);
    expect(tokens, KeywordId::while_, LanguageError::expectedWhile);
    JsonObject form = CompiledForm::rule(ruleName, 3);
    form.insert("cond", compileParenthesisedCondition(tokens, compiler));
    form.insert("loop", std::move(loop));
    expect(tokens, PunctuatorId::semicolon, LanguageError::expectedSemicolonToken);
    compiler.popScope();
    return form;
}

LinkedStatement DoWhileRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    auto condition = linkConditionAt(form, "cond", linker);
    return LinkedStatement(
        std::make_unique<DoWhileStatement>(std::move(condition), linker.linkStatement(form.member("loop"))));
}
