#include "conversion/core/conversionrule.h"

#include "conversion/core/conversionaccess.h"

#include <algorithm>

namespace Halvorin::Text {

namespace {

class ConversionRuleData : public System::ObjectData
{
public:
    explicit ConversionRuleData(AbstractConversionRuleImpl* adopted) : impl(adopted) {}
    ConversionRuleData(const ConversionRuleData&) = default;

    std::shared_ptr<AbstractConversionRuleImpl> impl;
};

} // namespace

ConversionRule::ConversionRule(AbstractConversionRuleImpl* impl)
    : Object(std::make_unique<ConversionRuleData>(impl))
{}

ConversionRule::ConversionRule(const ConversionRule& other)
    : Object(std::make_unique<ConversionRuleData>(static_cast<const ConversionRuleData&>(other._data())))
{}

ConversionRule::ConversionRule(ConversionRule&&) noexcept = default;

ConversionRule& ConversionRule::operator=(const ConversionRule& other)
{
    return *this = ConversionRule(other);
}

ConversionRule& ConversionRule::operator=(ConversionRule&&) noexcept = default;

ConversionRule::~ConversionRule() = default;

QString ConversionRule::convert(ConversionMatch& match) const
{
    return ConversionAccess::implOf(*this).convert(match);
}

ConversionMatch ConversionRule::match(const QStringRef& source, std::size_t offset) const
{
    // no text is longer than an int can say: an offset that it cannot say is behind the end
    const auto behindEnd = static_cast<std::size_t>(source.size()) + 1;
    return ConversionAccess::implOf(*this).match(source, static_cast<int>(std::min(offset, behindEnd)),
                                                 *this);
}

AbstractConversionRuleImpl& ConversionAccess::implOf(const ConversionRule& rule)
{
    return *static_cast<const ConversionRuleData&>(rule._data()).impl;
}

} // namespace Halvorin::Text
