#ifndef TOKENSTREAM_H
#define TOKENSTREAM_H

#include "actionlanguage/tokens/token.h"

#include <span>

/// What the statement rules read: tokens, with a cursor that starts before the first. Reading at the end
/// never fails: it gives the file-end token, an empty text at the length of the source.
class TokenStream
{
public:
    TokenStream(std::span<const Token> tokens, std::string_view source)
        : m_tokens(tokens), m_fileEnd(source.substr(source.size()), source.size(), FileEndTokenDetail())
    {}

    /// The token that was consumed last; before any was, and in an empty text, the file-end token.
    const Token& current() const { return m_consumed == 0 ? m_fileEnd : m_tokens[m_consumed - 1]; }

    /// The token ahead.
    const Token& next() const { return atEnd() ? m_fileEnd : m_tokens[m_consumed]; }

    /// Consumes the token ahead and gives it.
    const Token& advance() { return atEnd() ? m_fileEnd : m_tokens[m_consumed++]; }

    /// Puts the token consumed last back.
    void stepBack() { --m_consumed; }

    bool atEnd() const { return m_consumed == m_tokens.size(); }
    bool nextIs(PunctuatorId id) const { return next().is(id); }
    bool nextIs(KeywordId id) const { return next().is(id); }

    /// Consumes the token ahead if it is this punctuator; tells whether it did.
    bool take(PunctuatorId id)
    {
        if (!nextIs(id))
            return false;
        ++m_consumed;
        return true;
    }

private:
    std::span<const Token> m_tokens;
    std::size_t m_consumed = 0;
    Token m_fileEnd;
};

#endif
