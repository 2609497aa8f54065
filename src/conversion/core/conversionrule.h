#ifndef CONVERSIONRULE_H
#define CONVERSIONRULE_H

#include "HalvCore/object.h"
#include "conversion/core/conversionmatch.h"
#include "halvwidgetsexport.h"

#include <QString>
#include <QStringRef>
#include <cstddef>

namespace Halvorin::Text {

class AbstractConversionRuleImpl;

/// A rule of a ConversionLibrary: what it finds in a text, and what it turns that into. Copies share the
/// implementation.
class HALVWIDGETS_EXPORT ConversionRule : public System::Object
{
public:
    ConversionRule(const ConversionRule&);
    ConversionRule(ConversionRule&&) noexcept;
    ConversionRule& operator=(const ConversionRule&);
    ConversionRule& operator=(ConversionRule&&) noexcept;
    ~ConversionRule() override;

    /// The converted text of a match that this rule has made.
    virtual QString convert(ConversionMatch& match) const;
    /// The first match from the offset on.
    ConversionMatch match(const QStringRef& source, std::size_t offset) const;

private:
    friend class ConversionAccess;

    explicit ConversionRule(AbstractConversionRuleImpl* impl);
};

} // namespace Halvorin::Text

#endif
