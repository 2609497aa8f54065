#ifndef ESCAPES_H
#define ESCAPES_H

#include "actionlanguage/rules/abstractcompiler.h"

/// The bytes that the body of a string or char literal stands for: its text without the first and the last
/// character. A lone quote has an empty body. An escape that the language does not know is warning 7, and
/// stands for its character.
/// @throws RequiresPositionException 21 when the body ends in a backslash.
std::string decodedLiteral(const Token& literal, AbstractCompiler& compiler);

#endif
