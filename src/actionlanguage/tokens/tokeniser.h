#ifndef TOKENISER_H
#define TOKENISER_H

#include "actionlanguage/tokens/token.h"

#include <vector>

/// The most tokens of a text. Its compiled form takes some hundred bytes of memory for each.
inline constexpr std::size_t maximumTokens = 2'000'000;

/// Turns a source text into tokens: a scan pass over the bytes, then a pass that makes keywords of the
/// identifiers that spell one. What is wrong with the text goes on `diagnostics`, as codes of LanguageError;
/// the tokens that there are come back all the same. The tokens are views into `source`.
///
/// @throws TokeniserAllocationFailure for a byte that no token begins with, TooManyTokensException.
std::vector<Token> tokenise(std::string_view source, std::vector<Diagnostic>& diagnostics);

#endif
