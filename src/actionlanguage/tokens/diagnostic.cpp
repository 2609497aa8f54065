#include "actionlanguage/tokens/diagnostic.h"

#include "statechart/text/format.h"

#include <array>

namespace {

/// In the order of LanguageError. Doubled braces are the formatter's escapes.
constexpr auto errorTexts = std::to_array<std::string_view>({
    "'{}' left hand side requires identifier",
    "assignment '{}': no matching operator found for operands (or there is no acceptable conversion)",
    "binary '{}': no matching operator found for operands (or there is no acceptable conversion)",
    "'{}': you cannot assign to a variable that is const",
    "syntax error: '{}' was unexpected; expected '}}'",
    "syntax error: '{}' was unexpected; expected ')'",
    "expected conditional expression",
    "syntax error: '{}' was unexpected; expected 'expression'",
    "syntax error: expected expression after '{}'",
    "syntax error: expected expression before '{}'",
    "syntax error: '{}' was unexpected; expected '{{'",
    "syntax error: '{}' was unexpected; expected '('",
    "syntax error: '{}' was unexpected; expected ';'",
    "expected ';'",
    "syntax error: '{}' was unexpected; expected 'while'",
    "syntax error: function call '{}' missing close ')'",
    "'{}': overloaded functions have similar conversions",
    "identifier expected",
    "'{}': identifier not found",
    "invalid cast",
    "syntax error: '{}' was unexpected; expected 'expression'",
    "'{}': invalid string literal",
    "missing close ')'",
    "'{}': nees l-value",
    "newline in constant",
    "'{}': no overloaded function exists, check argument types",
    "'{}': no conversion for operator argument types",
    "'{}': too many characters in char constant",
    "'{}': unable to determine expression result type",
    "unary '{}': no matching operator found for operand (or there is no acceptable conversion)",
    "'{}': undeclared identifier",
    "unexpected end of file",
    "unexpected end of file found in comment",
    "unexpected keyword '{}'",
    "unexpected specifier '{}'",
    "unexpected token '{}'",
    "'{}': cannot be used before it is initialised",
    "unknown token '{}'",
    "unsupported direct initialisation",
    "unsupported initialiser format",
    "unsupported literal '{}'",
    "unsupported operator '{}'",
    "unsupported specifier '{}'",
    "'{}': redefinition",
});
static_assert(errorTexts.size() == static_cast<std::size_t>(LanguageError::redefinition) + 1);

/// In the order of LanguageWarning.
constexpr auto warningTexts = std::to_array<std::string_view>({
    "'initialising': conversion from 'double' to 'bool', possible loss of data",
    "'initialising': truncation from 'double' to 'bool'",
    "'initialising': truncation from 'int' to 'bool'",
    "'{}': unsafe mix of type 'bool' and type 'char' in operation",
    "'{}': unsafe mix of type 'bool' and type 'double' in operation",
    "'{}': unsafe mix of type 'bool' and type 'int' in operation",
    "'{}' is not used",
    "'{}': unrecognised character escape sequence",
});
static_assert(warningTexts.size() == static_cast<std::size_t>(LanguageWarning::unrecognisedEscape) + 1);

} // namespace

std::string errorText(std::uint32_t code, std::string_view blamed)
{
    return code < errorTexts.size() ? formatText(errorTexts[code], blamed) : "unknown error";
}

std::string warningText(std::uint32_t code, std::string_view blamed)
{
    return code < warningTexts.size() ? formatText(warningTexts[code], blamed) : "unknown warning";
}

std::string_view blamedText(std::string_view source, const SourceSpan& span)
{
    if (span.position == positionUnknown)
        return source.substr(source.size());
    return source.substr(span.position, span.length);
}
