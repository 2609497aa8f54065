#ifndef TYPESPECIFIER_H
#define TYPESPECIFIER_H

#include "actionlanguage/tokens/tokenstream.h"
#include "actionlanguage/types/datatype.h"

/// What a declaration says in front of its names.
struct TypeSpecifier
{
    DataType type = DataType::unknown;
    bool isConst = false;
};

/// Whether an identifier or keyword spells a type: "bool", "char", "double", "int", "int64_t", "string",
/// "uint64_t" or "void".
bool isTypeWord(const Token& token);

/// Whether a token is one of the words with which a declaration may begin, those that are then refused
/// among them.
bool isDeclarationWord(const Token& token);

/// Reads the type at the head of a declaration: "const char *" is a constant string.
/// @throws CompilationException 42 for a word that cannot declare and where no type was read, 34 for a
/// second type.
TypeSpecifier readTypeSpecifier(TokenStream& tokens);

#endif
