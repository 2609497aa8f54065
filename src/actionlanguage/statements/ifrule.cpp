#include "actionlanguage/statements/ifrule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"
#include "statechart/text/format.h"

#include <stdexcept>

namespace {
constexpr std::string_view ifName = "if";
constexpr std::string_view ifElseName = "ifelse";
} // namespace

bool IfRule::matches(const Token& token) const
{
    return token.is(KeywordId::if_);
}

bool IfRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ifName) || CompiledForm::isRule(form, ifElseName);
}

JsonValue IfRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    expect(tokens, KeywordId::if_, LanguageError::unexpectedToken);
    JsonValue condition = compileParenthesisedCondition(tokens, compiler);
    JsonValue onTrue = compiler.compileStatement(tokens);
    const bool hasElse = tokens.nextIs(KeywordId::else_);

    JsonObject form = CompiledForm::rule(hasElse ? ifElseName : ifName);
    form.insert("cond", std::move(condition));
    form.insert("onTrue", std::move(onTrue));
    if (hasElse) {
        tokens.advance();
        form.insert("onFalse", compiler.compileStatement(tokens));
    }
    return form;
}

LinkedStatement IfRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    if (!canLink(form))
        throw std::runtime_error(
            formatText("invalid type for 'if' linking: '{}'", form.member("type").asString()));
    auto condition = linkConditionAt(form, "cond", linker);
    LinkedStatement onTrue = linker.linkStatement(form.member("onTrue"));
    if (CompiledForm::isRule(form, ifName))
        return LinkedStatement(std::make_unique<IfStatement>(std::move(condition), std::move(onTrue)));
    return LinkedStatement(std::make_unique<IfElseStatement>(std::move(condition), std::move(onTrue),
                                                             linker.linkStatement(form.member("onFalse"))));
}
