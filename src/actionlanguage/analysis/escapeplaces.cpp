#include "actionlanguage/analysis/escapeplaces.h"

#include "actionlanguage/tokens/tokeniser.h"
#include "statechart/text/textwidth.h"

#include <algorithm>

EscapePlaces::EscapePlaces(std::string_view source) : m_source(source)
{
    std::vector<Diagnostic> findings;
    for (const Token& token : tokenise(source, findings)) {
        if (token.is(LiteralKind::string) || token.is(LiteralKind::character))
            m_literals.push_back(token.span());
    }
}

SourceSpan EscapePlaces::placeOf(std::uint64_t reported) const
{
    const auto behind = std::ranges::upper_bound(m_literals, reported, {}, &SourceSpan::position);
    if (behind == m_literals.begin())
        return {reported, 1};
    const SourceSpan& literal = *std::prev(behind);
    const std::uint64_t start = literal.position + 1; // of its body
    const std::uint64_t end = literal.end() - 1;
    if (reported <= start || reported > end)
        return {reported, 1};
    const std::uint64_t character = end - (reported - start);
    return {character - 1, 1 + characterLength(m_source.substr(character))};
}
