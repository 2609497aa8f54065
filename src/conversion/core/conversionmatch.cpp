#include "conversion/core/conversionmatch.h"

#include "conversion/core/abstractconversionmatchimpl.h"
#include "conversion/core/conversionrule.h"

namespace Halvorin::Text {

namespace {

class ConversionMatchData : public System::ObjectData
{
public:
    explicit ConversionMatchData(AbstractConversionMatchImpl* adopted) : impl(adopted) {}

    System::UniquePointer<AbstractConversionMatchImpl> impl;
};

} // namespace

ConversionMatch::ConversionMatch() : ConversionMatch(nullptr) {}

ConversionMatch::ConversionMatch(AbstractConversionMatchImpl* impl)
    : Object(std::make_unique<ConversionMatchData>(impl))
{}

ConversionMatch::ConversionMatch(ConversionMatch&&) noexcept = default;

ConversionMatch& ConversionMatch::operator=(ConversionMatch&&) noexcept = default;

ConversionMatch::~ConversionMatch() = default;

const AbstractConversionMatchImpl* ConversionMatch::impl() const
{
    return static_cast<const ConversionMatchData&>(_data()).impl.get();
}

AbstractConversionMatchImpl* ConversionMatch::impl()
{
    return static_cast<ConversionMatchData&>(_data()).impl.get();
}

bool ConversionMatch::hasMatch() const
{
    return impl() != nullptr && impl()->hasMatch();
}

int ConversionMatch::start() const
{
    return impl()->start();
}

int ConversionMatch::end() const
{
    return impl()->end();
}

int ConversionMatch::length() const
{
    return impl() == nullptr ? 0 : impl()->length();
}

QStringRef ConversionMatch::source() const
{
    return impl() == nullptr ? QStringRef() : impl()->source();
}

QString ConversionMatch::convertMatched()
{
    return impl()->rule().convert(*this);
}

} // namespace Halvorin::Text
