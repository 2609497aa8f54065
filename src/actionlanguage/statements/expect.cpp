#include "actionlanguage/statements/expect.h"

void expectSemicolon(TokenStream& tokens)
{
    if (!tokens.take(PunctuatorId::semicolon))
        throw CompilationException(LanguageError::expectedSemicolon, tokens.current().span());
}
