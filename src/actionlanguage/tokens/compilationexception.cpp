#include "actionlanguage/tokens/compilationexception.h"

#include "actionlanguage/tokens/tokeniser.h"
#include "statechart/text/format.h"

CompilationException::CompilationException(LanguageError code, const SourceSpan& span)
    : std::runtime_error("compilation error"), m_code(code), m_span(span)
{}

std::string CompilationException::message(std::string_view source) const
{
    return errorText(static_cast<std::uint32_t>(m_code), blamedText(source, m_span));
}

RequiresPositionException::RequiresPositionException(LanguageError code)
    : CompilationException(code, {positionUnknown, 0})
{}

NestingException::NestingException(const SourceSpan& span)
    : CompilationException(LanguageError::nestedTooDeeply, span)
{}

std::string NestingException::message(std::string_view source) const
{
    return formatText("'{}': nested too deeply", blamedText(source, span()));
}

LiteralConversionException::LiteralConversionException(const char* text, const SourceSpan& span)
    : std::runtime_error(text), m_span(span)
{}

TooManyTokensException::TooManyTokensException(const SourceSpan& span)
    : TokeniserAllocationFailure(span.position),
      m_text(formatText("more than {} tokens in one text", maximumTokens)), m_span(span)
{}

const char* TokeniserAllocationFailure::what() const noexcept
{
    return "bad allocation";
}
