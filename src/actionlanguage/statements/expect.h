#ifndef EXPECT_H
#define EXPECT_H

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokenstream.h"

/// Consumes the token ahead if it is this punctuator or keyword. @throws CompilationException with `code`
/// at the token ahead otherwise; at the end of the text that is an empty text at its length.
template <class Id>
void expect(TokenStream& tokens, Id id, LanguageError code)
{
    if (!tokens.nextIs(id))
        throw CompilationException(code, tokens.next().span());
    tokens.advance();
}

/// The ";" behind an expression or a declaration. @throws CompilationException 13 at the token before the
/// place where it is missing.
void expectSemicolon(TokenStream& tokens);

#endif
