#ifndef SOURCETOKENS_H
#define SOURCETOKENS_H

#include "actionlanguage/tokens/token.h"

#include <string_view>
#include <vector>

/// The tokens of a text that compiled, handed out from left to right to the parts of its compiled form. Each
/// call skips what leaves no trace in the form: parentheses, semicolons, words of types, and names that are
/// declared without a value. What is not found has an empty place at the end of the text.
class SourceTokens
{
public:
    explicit SourceTokens(std::string_view source);

    SourceSpan takeLiteral();
    SourceSpan takeTruth(); ///< "true" or "false"
    SourceSpan takeName();  ///< of a variable
    SourceSpan takeText(std::string_view text);

    /// The parenthesis that closes the one ahead.
    SourceSpan partnerOfNext() const;

    /// A place together with the pairs of parentheses that stand right around it.
    SourceSpan withParentheses(const SourceSpan& span) const;

private:
    template <class Predicate>
    SourceSpan takeFirst(Predicate predicate);

    void markBareDeclarations();
    void findPartners();

    std::vector<Token> m_tokens;
    std::vector<bool> m_isBare;          // a name that is declared without a value
    std::vector<std::size_t> m_partners; // of an opening parenthesis
    std::size_t m_next = 0;
    SourceSpan m_end;
};

#endif
