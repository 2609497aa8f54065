#include "actionlanguage/statements/expressionstatementrule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"
#include "actionlanguage/types/typespecifier.h"

#include <algorithm>
#include <array>

namespace {

/// "&" and "*" only to fail in the sweeps: neither has a unary form.
constexpr auto openingPunctuators = std::to_array<PunctuatorId>({
    PunctuatorId::and_,
    PunctuatorId::star,
    PunctuatorId::minusMinus,
    PunctuatorId::exclamation,
    PunctuatorId::plusPlus,
    PunctuatorId::minus,
    PunctuatorId::openParenthesis,
    PunctuatorId::plus,
    PunctuatorId::tilde,
});

} // namespace

bool ExpressionStatementRule::matches(const Token& token) const
{
    switch (token.kind()) {
    case TokenKind::identifier:
        return !isTypeWord(token);
    case TokenKind::keyword:
        return token.is(KeywordId::true_) || token.is(KeywordId::false_);
    case TokenKind::literal:
        return true;
    case TokenKind::punctuator:
        return std::ranges::count(openingPunctuators, token.punctuator()) != 0;
    case TokenKind::fileEnd:
        return false;
    }
    return false;
}

bool ExpressionStatementRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, "expr");
}

JsonValue ExpressionStatementRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    auto expression = compiler.compileExpression(tokens, true);
    expectSemicolon(tokens);
    return expressionStatementForm(std::move(expression));
}

LinkedStatement ExpressionStatementRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    return LinkedStatement(std::make_unique<ExpressionStatement>(linkDiscarded(form, linker)));
}
