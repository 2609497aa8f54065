#include "actionlanguage/statements/nullstatementrule.h"

#include "actionlanguage/runtime/statements.h"
#include "actionlanguage/statements/expect.h"

#include <stdexcept>

bool NullStatementRule::matches(const Token& token) const
{
    return token.is(PunctuatorId::semicolon);
}

bool NullStatementRule::canLink(const JsonValue& form) const
{
    return form.isNull();
}

JsonValue NullStatementRule::compile(TokenStream& tokens, AbstractCompiler&) const
{
    expect(tokens, PunctuatorId::semicolon, LanguageError::expectedSemicolonToken);
    return JsonNull();
}

LinkedStatement NullStatementRule::link(const JsonValue& form, AbstractLinker&) const
{
    if (!form.isNull())
        throw std::runtime_error("invalid compiled statement for null statement link");
    return LinkedStatement(std::make_unique<NullStatement>());
}
