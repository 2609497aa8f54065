#include "actionlanguage/statements/compoundstatementrule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"

bool CompoundStatementRule::matches(const Token& token) const
{
    return token.is(PunctuatorId::openBrace);
}

bool CompoundStatementRule::canLink(const JsonValue& form) const
{
    return form.isArray();
}

JsonValue CompoundStatementRule::compile(TokenStream& tokens, AbstractCompiler& compiler) const
{
    compiler.pushScope();
    expect(tokens, PunctuatorId::openBrace, LanguageError::expectedOpenBrace);
    JsonArray statements;
    while (!tokens.nextIs(PunctuatorId::closeBrace) && !tokens.atEnd()) {
        JsonValue statement = compiler.compileStatement(tokens);
        if (!statement.isNull())
            statements.push_back(std::move(statement));
    }
    expect(tokens, PunctuatorId::closeBrace, LanguageError::expectedCloseBrace);
    compiler.popScope();
    return statements;
}

LinkedStatement CompoundStatementRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const JsonArray& forms = form.asArray();
    std::vector<LinkedStatement> statements;
    statements.reserve(forms.size());
    for (const JsonValue& statement : forms)
        statements.push_back(linker.linkStatement(statement));
    return LinkedStatement(std::make_unique<CompoundStatement>(LinkedStatements(std::move(statements))));
}
