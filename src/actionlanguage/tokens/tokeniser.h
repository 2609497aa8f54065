#ifndef TOKENISER_H
#define TOKENISER_H

#include "actionlanguage/tokens/token.h"

#include <vector>

/// Turns a source text into tokens: a scan pass over the bytes, then a pass that makes keywords of the
/// identifiers that spell one. What is wrong with the text goes on `diagnostics`, as codes of LanguageError;
/// the tokens that there are come back all the same. The tokens are views into `source`.
///
/// @throws TokeniserAllocationFailure for a byte that no token begins with.
std::vector<Token> tokenise(std::string_view source, std::vector<Diagnostic>& diagnostics);

#endif
