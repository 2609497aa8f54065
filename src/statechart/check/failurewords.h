#ifndef FAILUREWORDS_H
#define FAILUREWORDS_H

#include "actionlanguage/tokens/diagnostic.h"

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a failure says, and what it blames in the action text that was compiled, if it was that of one.
struct FailureWords
{
    std::string text;
    std::optional<std::uint32_t> code; ///< in the language's table of errors
    std::optional<SourceSpan> span;
};

/// Goes to the bottom of what a compile raised, where the language says what is wrong in its own words.
/// Several when the tokeniser found several things.
std::vector<FailureWords> wordsOf(const std::exception_ptr& failure, std::string_view source);

#endif
