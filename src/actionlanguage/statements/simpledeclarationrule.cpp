#include "actionlanguage/statements/simpledeclarationrule.h"

#include "actionlanguage/statements/expect.h"
#include "actionlanguage/statements/statementforms.h"
#include "actionlanguage/types/typespecifier.h"

#include <stdexcept>

namespace {

/// "name" or "name = value"; the statement of the latter is appended to `statements`.
void compileDeclarator(const TypeSpecifier& specifier, TokenStream& tokens, AbstractCompiler& compiler,
                       JsonArray& statements)
{
    if (tokens.next().kind() != TokenKind::identifier)
        throw CompilationException(LanguageError::expectedIdentifier, tokens.next().span());
    const Token& name = tokens.advance();
    const Token& behind = tokens.next();
    if (behind.is(PunctuatorId::openParenthesis))
        throw CompilationException(LanguageError::directInitialisation, behind.span());

    const bool isInitialised = behind.is(PunctuatorId::assign);
    const bool isPlain = behind.kind() != TokenKind::punctuator || behind.is(PunctuatorId::comma) ||
                         behind.is(PunctuatorId::semicolon);
    if (!isPlain && !isInitialised)
        return;

    const std::string id =
        compiler.declareVariable(name.text(), specifier.type, specifier.isConst, name.span());
    if (!isInitialised)
        return;

    // Read from the name on, the initialiser is an assignment, which "const" does not bar here. The variable
    // counts as initialised on its right side already.
    tokens.stepBack();
    compiler.markInitialised(id);
    compiler.setConst(id, false);
    statements.push_back(expressionStatementForm(compiler.compileExpression(tokens, false)));
    compiler.setConst(id, specifier.isConst);
}

} // namespace

bool SimpleDeclarationRule::matches(const Token& token) const
{
    return isDeclarationWord(token) || (token.kind() == TokenKind::identifier && isTypeWord(token));
}

bool SimpleDeclarationRule::canLink(const JsonValue&) const
{
    return false;
}

JsonValue SimpleDeclarationRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    const TypeSpecifier specifier = readTypeSpecifier(tokens);
    JsonArray statements;
    do
        compileDeclarator(specifier, tokens, compiler, statements);
    while (tokens.take(PunctuatorId::comma));
    expectSemicolon(tokens);
    if (statements.size() == 1)
        return std::move(statements.front());
    return statements;
}

LinkedStatement SimpleDeclarationRule::link(const JsonValue&, AbstractLinker&) const
{
    throw std::runtime_error("cannot link simple declaration");
}
