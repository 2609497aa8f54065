#ifndef CONVERSIONACCESS_H
#define CONVERSIONACCESS_H

#include "conversion/core/abstractconversionruleimpl.h"
#include "conversion/core/conversionrule.h"

#include <memory>

namespace Halvorin::Text {

/// For the kinds of rules: makes rules and matches of their implementations, which users of a library never
/// see.
class ConversionAccess
{
public:
    static ConversionRule makeRule(std::unique_ptr<AbstractConversionRuleImpl> impl)
    {
        return ConversionRule(impl.release());
    }
    static ConversionMatch makeMatch(AbstractConversionMatchPointer impl)
    {
        return ConversionMatch(impl.release());
    }
    static AbstractConversionRuleImpl& implOf(const ConversionRule& rule);
};

} // namespace Halvorin::Text

#endif
