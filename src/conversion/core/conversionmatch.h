#ifndef CONVERSIONMATCH_H
#define CONVERSIONMATCH_H

#include "HalvCore/object.h"
#include "halvwidgetsexport.h"

#include <QString>
#include <QStringRef>

namespace Halvorin::Text {

class AbstractConversionMatchImpl;

/// What a rule found in a text, or "no match". Positions count from the start of `source`, a part of the
/// caller's text, which must outlive the match.
class HALVWIDGETS_EXPORT ConversionMatch : public System::Object
{
public:
    /// No match.
    ConversionMatch();
    ConversionMatch(ConversionMatch&&) noexcept;
    ConversionMatch& operator=(ConversionMatch&&) noexcept;
    ~ConversionMatch() override;

    bool hasMatch() const;
    /// Not of a "no match", as end and convertMatched.
    int start() const;
    /// Where the search goes on. A rule may change it while it converts: convert first.
    int end() const;
    int length() const;
    QStringRef source() const;
    QString convertMatched();

    const AbstractConversionMatchImpl* impl() const;
    AbstractConversionMatchImpl* impl();

private:
    friend class ConversionAccess;

    explicit ConversionMatch(AbstractConversionMatchImpl* impl);
};

} // namespace Halvorin::Text

#endif
