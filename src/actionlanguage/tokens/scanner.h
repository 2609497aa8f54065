#ifndef SCANNER_H
#define SCANNER_H

#include "actionlanguage/tokens/token.h"

#include <vector>

/// The scan pass of the tokeniser: one switch on the current byte. Comes in: bytes. Goes out: tokens, with
/// keywords still as identifiers, and what was found wrong. It never looks at more than two bytes ahead.
class Scanner
{
public:
    Scanner(std::string_view source, std::vector<Diagnostic>& diagnostics);

    std::vector<Token> scan();

private:
    bool at(std::size_t position, char wanted) const
    {
        return position < m_source.size() && m_source[position] == wanted;
    }
    void scanNext();
    void punctuator(PunctuatorId id);
    void longestPunctuator(std::initializer_list<PunctuatorId> candidates);
    void greaterThan();
    void slashOrComment();
    void lineComment();
    void blockComment();
    void identifier();
    void number();
    void string();
    void character();
    void take(std::size_t end, Token::Detail detail);
    void record(LanguageError code, std::size_t position);

    std::string_view m_source;
    std::vector<Diagnostic>& m_diagnostics;
    std::vector<Token> m_tokens;
    std::size_t m_position = 0;
};

#endif
