#ifndef ABSTRACTCONVERSIONMATCHIMPL_H
#define ABSTRACTCONVERSIONMATCHIMPL_H

#include <QStringRef>
#include <memory>

namespace Halvorin::Text {

class ConversionRule;

/// A place that a rule found. It refers to the text, which must outlive it.
class AbstractConversionMatchImpl
{
public:
    virtual ~AbstractConversionMatchImpl() = default;

    virtual int end() const = 0;
    virtual int length() const = 0;
    virtual bool hasMatch() const = 0;
    virtual const ConversionRule& rule() const = 0;
    virtual int start() const = 0;
    virtual QStringRef source() const = 0;
};

using AbstractConversionMatchPointer = std::unique_ptr<AbstractConversionMatchImpl>;

} // namespace Halvorin::Text

#endif
