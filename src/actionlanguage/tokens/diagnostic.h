#ifndef DIAGNOSTIC_H
#define DIAGNOSTIC_H

#include "halvwidgetsexport.h"

#include <cstdint>
#include <string>
#include <string_view>

/// A piece of source text: bytes from the start of the text.
struct SourceSpan
{
    std::uint64_t position = 0;
    std::uint64_t length = 0;

    std::uint64_t end() const { return position + length; }
    friend bool operator==(const SourceSpan&, const SourceSpan&) = default;
};

/// The span from the start of one to the end of another.
inline SourceSpan joined(const SourceSpan& first, const SourceSpan& last)
{
    return {first.position, last.end() - first.position};
}

/// The errors of the language; the texts stand in diagnostic.cpp, in the same order.
/// To add one, append it here and in the table there.
enum class LanguageError : std::uint32_t
{
    assignmentNeedsIdentifier,
    noAssignmentOperator,
    noBinaryOperator,
    assignmentToConst,
    expectedCloseBrace,
    expectedCloseParenthesis,
    expectedCondition,
    unexpectedInExpression,
    expectedExpressionAfter,
    expectedExpressionBefore,
    expectedOpenBrace,
    expectedOpenParenthesis,
    expectedSemicolonToken,
    expectedSemicolon,
    expectedWhile,
    callMissesClose,
    ambiguousOverload,
    expectedIdentifier,
    identifierNotFound,
    invalidCast,
    unexpectedToken20,
    invalidStringLiteral,
    missingCloseParenthesis,
    needsLvalue,
    newlineInConstant,
    noOverload,
    noConversion,
    charTooLong,
    noResultType,
    noUnaryOperator,
    undeclaredIdentifier,
    unexpectedEndOfFile,
    unterminatedComment,
    unexpectedKeyword,
    unexpectedSpecifier,
    unexpectedToken,
    notInitialised,
    unknownToken,
    directInitialisation,
    unsupportedInitialiser,
    unsupportedLiteral,
    unsupportedOperator,
    unsupportedSpecifier,
    redefinition,

    /// Not of the table: the limits of the compiler itself. Its words are those of NestingException.
    nestedTooDeeply = 1000,
};

enum class LanguageWarning : std::uint32_t
{
    initialisingDoubleToBool,
    truncationDoubleToBool,
    truncationIntToBool,
    mixOfBoolAndChar,
    mixOfBoolAndDouble,
    mixOfBoolAndInt,
    notUsed,
    unrecognisedEscape,
};

/// One finding of the tokeniser, or one warning: a code of LanguageError or LanguageWarning, and where.
struct HALVWIDGETS_EXPORT Diagnostic
{
    std::uint32_t code = 0;
    std::uint64_t position = 0;
    std::uint64_t length = 0;

    friend bool operator==(const Diagnostic&, const Diagnostic&) = default;
};

/// The position of an error that came up when the text was used up and whose place nobody knew.
inline constexpr std::uint64_t positionUnknown = ~std::uint64_t{0};

/// The words of an error with "{}" filled by the characters that it blames; "unknown error" for a code
/// outside the table.
std::string errorText(std::uint32_t code, std::string_view blamed);

/// The same for a warning; "unknown warning" for a code outside the table.
std::string warningText(std::uint32_t code, std::string_view blamed);

/// The characters at a span. `positionUnknown` stands for the end of the text.
/// @throws std::out_of_range when the span starts past the end of the source.
std::string_view blamedText(std::string_view source, const SourceSpan& span);

#endif
