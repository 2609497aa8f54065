#ifndef COMPILATIONEXCEPTION_H
#define COMPILATIONEXCEPTION_H

#include "actionlanguage/tokens/diagnostic.h"

#include <new>
#include <stdexcept>

/// The first error of a compile. what() is always "compilation error": the words and the place come from
/// message() and span(), given the source that was compiled.
class HALVWIDGETS_EXPORT CompilationException : public std::runtime_error
{
public:
    CompilationException(LanguageError code, const SourceSpan& span);

    LanguageError code() const { return m_code; }
    const SourceSpan& span() const { return m_span; }

    /// The worded error. @throws std::out_of_range when the span starts past the end of `source`.
    virtual std::string message(std::string_view source) const;

private:
    LanguageError m_code;
    SourceSpan m_span;
};

/// An error raised where the place is not known. Whoever catches it raises a CompilationException with the
/// span of what it was working on.
class HALVWIDGETS_EXPORT RequiresPositionException : public CompilationException
{
public:
    explicit RequiresPositionException(LanguageError code);
};

/// Blocks, parentheses or operands nest deeper than the compiler goes: "'{}': nested too deeply".
class HALVWIDGETS_EXPORT NestingException : public CompilationException
{
public:
    explicit NestingException(const SourceSpan& span);

    std::string message(std::string_view source) const override;
};

/// A literal that does not fit its type: an error of the standard library's conversion, not of the
/// language's table. what() is "compiler failed to convert string to int" (or "to double").
class HALVWIDGETS_EXPORT LiteralConversionException : public std::runtime_error
{
public:
    LiteralConversionException(const char* text, const SourceSpan& span);

    const SourceSpan& span() const { return m_span; }

private:
    SourceSpan m_span;
};

/// A byte that belongs to no token. The tokeniser would record it for ever at the same place, so it ends
/// at once in what that comes to: an allocation failure.
class HALVWIDGETS_EXPORT TokeniserAllocationFailure : public std::bad_alloc
{
public:
    explicit TokeniserAllocationFailure(std::uint64_t position) : m_position(position) {}

    const char* what() const noexcept override;
    std::uint64_t position() const { return m_position; }

private:
    std::uint64_t m_position;
};

/// A text of more tokens than the compiler takes, since it would need many times its size in memory. what()
/// is "more than 2000000 tokens in one text".
class HALVWIDGETS_EXPORT TooManyTokensException : public TokeniserAllocationFailure
{
public:
    /// @param span the first token beyond the limit.
    explicit TooManyTokensException(const SourceSpan& span);

    const char* what() const noexcept override { return m_text.what(); }
    const SourceSpan& span() const { return m_span; }

private:
    std::runtime_error m_text;
    SourceSpan m_span;
};

#endif
