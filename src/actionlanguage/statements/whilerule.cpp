#include "actionlanguage/statements/whilerule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"

namespace {
constexpr std::string_view ruleName = "while";
}

bool WhileRule::matches(const Token& token) const
{
    return token.is(KeywordId::while_);
}

bool WhileRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName);
}

JsonValue WhileRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    compiler.pushScope();
    expect(tokens, KeywordId::while_, LanguageError::unexpectedToken);
    JsonObject form = CompiledForm::rule(ruleName, 3);
    form.insert("cond", compileParenthesisedCondition(tokens, compiler));
    form.insert("loop", compiler.compileStatement(tokens));
    compiler.popScope();
    return form;
}

LinkedStatement WhileRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    auto condition = linkConditionAt(form, "cond", linker);
    return LinkedStatement(
        std::make_unique<WhileStatement>(std::move(condition), linker.linkStatement(form.member("loop"))));
}
