#ifndef BESTMATCH_H
#define BESTMATCH_H

#include "conversion/core/abstractconversionmatchimpl.h"
#include "conversion/core/conversionrule.h"
#include "conversion/core/sourcetext.h"

#include <vector>

namespace Halvorin::Text {

/// The leftmost match of a list of rules from the offset on; of those that start at the same place, that of
/// the first rule.
ConversionMatch bestMatch(const std::vector<ConversionRule>& rules, const QStringRef& source,
                          std::size_t offset);

/// The same at the text's position, with the rest of the text as the whole of it.
ConversionMatch bestMatchHere(const std::vector<ConversionRule>& rules, SourceText& text);

/// Whether replacing can go by the text as it was, see AbstractConversionRuleImpl::isLocal.
bool areLocal(const std::vector<ConversionRule>& rules);

/// The best matches of local rules in a text that stays the same, at offsets that grow. A rule's hit is kept
/// as long as it lies ahead.
class BestMatches
{
public:
    BestMatches(const std::vector<ConversionRule>& rules, const QStringRef& source);

    /// The best match from the offset on; it is given away.
    ConversionMatch next(int offset);

private:
    struct Candidate
    {
        const ConversionRule* rule;
        AbstractConversionMatchPointer match = nullptr;
        bool isSearched = false;
    };

    SourceText m_text;
    std::vector<Candidate> m_candidates;
};

} // namespace Halvorin::Text

#endif
