#include "conversion/core/bestmatch.h"

#include "conversion/core/conversionaccess.h"

#include <algorithm>

namespace Halvorin::Text {

ConversionMatch bestMatch(const std::vector<ConversionRule>& rules, const QStringRef& source,
                          std::size_t offset)
{
    ConversionMatch best;
    for (const ConversionRule& rule : rules) {
        ConversionMatch match = rule.match(source, offset);
        if (match.hasMatch() && (!best.hasMatch() || match.start() < best.start()))
            best = std::move(match);
    }
    return best;
}

ConversionMatch bestMatchHere(const std::vector<ConversionRule>& rules, SourceText& text)
{
    // Nothing is further left than the position, and of two that start there the first rule wins: so the
    // first rule that matches there has the best match, whatever the others would find.
    for (const ConversionRule& rule : rules)
        if (AbstractConversionMatchPointer match = ConversionAccess::implOf(rule).matchHere(text, rule))
            return ConversionAccess::makeMatch(std::move(match));
    return bestMatch(rules, text.rest(), 0);
}

bool areLocal(const std::vector<ConversionRule>& rules)
{
    return std::ranges::all_of(
        rules, [](const ConversionRule& rule) { return ConversionAccess::implOf(rule).isLocal(); });
}

BestMatches::BestMatches(const std::vector<ConversionRule>& rules, const QStringRef& source) : m_text(source)
{
    for (const ConversionRule& rule : rules)
        m_candidates.push_back({&rule});
}

ConversionMatch BestMatches::next(int offset)
{
    Candidate* best = nullptr;
    for (Candidate& candidate : m_candidates) {
        if (!candidate.isSearched || (candidate.match && candidate.match->start() < offset)) {
            candidate.match =
                ConversionAccess::implOf(*candidate.rule).matchFrom(m_text, offset, *candidate.rule);
            candidate.isSearched = true;
        }
        if (candidate.match && (best == nullptr || candidate.match->start() < best->match->start()))
            best = &candidate;
    }
    if (best == nullptr)
        return ConversionMatch();
    best->isSearched = false;
    return ConversionAccess::makeMatch(std::move(best->match));
}

} // namespace Halvorin::Text
