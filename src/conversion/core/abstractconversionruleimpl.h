#ifndef ABSTRACTCONVERSIONRULEIMPL_H
#define ABSTRACTCONVERSIONRULEIMPL_H

#include "conversion/core/abstractconversionmatchimpl.h"
#include "conversion/core/conversionmatch.h"
#include "conversion/core/sourcetext.h"

#include <QString>
#include <QStringRef>

namespace Halvorin::Text {

class ConversionRule;

/// What a rule finds, and what it makes of it. Implementations are shared between copies of a rule and do not
/// change: several threads may read them.
class AbstractConversionRuleImpl
{
public:
    virtual ~AbstractConversionRuleImpl() = default;

    virtual QString convert(ConversionMatch& match) = 0;
    /// The first match from the offset on; text before it is in view of what looks behind.
    virtual ConversionMatch match(const QStringRef& source, int offset, const ConversionRule& self) = 0;

    /// The match that starts at the text's position, which counts as the start of the text; null if there is
    /// none.
    virtual AbstractConversionMatchPointer matchHere(SourceText& text, const ConversionRule& self) = 0;
    /// As `match`, in a text that stays the same over many calls.
    virtual AbstractConversionMatchPointer matchFrom(SourceText& text, int offset,
                                                     const ConversionRule& self) = 0;
    /// Whether a match depends on nothing before its start but the one character in front of it.
    virtual bool isLocal() const = 0;
};

} // namespace Halvorin::Text

#endif
