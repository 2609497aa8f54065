#include "conversion/core/regexconversionrule.h"

namespace Halvorin::Text {

namespace {

bool isAllBlanks(const QStringRef& source, int offset)
{
    for (int position = offset; position < source.size(); ++position)
        if (!isBlank(source.at(position).unicode()))
            return false;
    return true;
}

} // namespace

RegExConversionMatchImpl::RegExConversionMatchImpl(const Captures& captures, const ConversionRule& rule)
    : m_captures(captures), m_rule(rule)
{}

int RegExConversionMatchImpl::end() const
{
    return start() + length();
}

int RegExConversionMatchImpl::length() const
{
    return m_captures.hit().whole.length();
}

int RegExConversionUpdateMatchImpl::length() const
{
    return m_length ? static_cast<int>(*m_length) : RegExConversionMatchImpl::length();
}

const Captures& capturesOf(const ConversionMatch& match)
{
    return static_cast<const RegExConversionMatchImpl*>(match.impl())->captures();
}

AbstractRegExConversionRuleImpl::AbstractRegExConversionRuleImpl(RuleExpression definition)
    : m_expression(definition.pattern, definition.options, definition.groups), m_here(std::move(definition))
{}

ConversionMatch AbstractRegExConversionRuleImpl::match(const QStringRef& source, int offset,
                                                       const ConversionRule& self)
{
    const RuleExpression& definition = m_here.definition();
    Hit hit;
    if (definition.find) {
        SourceText text(source);
        return offset <= source.size() && definition.find(text, offset, hit)
                   ? ConversionAccess::makeMatch(makeMatch({source, hit}, self))
                   : ConversionMatch();
    }
    if (definition.scan && isAllBlanks(source, offset))
        return ConversionMatch();
    return m_expression.match(source, offset, hit) == Expression::Outcome::match
               ? ConversionAccess::makeMatch(makeMatch({source, hit}, self))
               : ConversionMatch();
}

AbstractConversionMatchPointer AbstractRegExConversionRuleImpl::matchHere(SourceText& text,
                                                                          const ConversionRule& self)
{
    Hit hit;
    if (!m_here.matchHere(text, hit))
        return nullptr;
    return makeMatch({text.rest(), hit, &text}, self);
}

AbstractConversionMatchPointer AbstractRegExConversionRuleImpl::matchFrom(SourceText& text, int offset,
                                                                          const ConversionRule& self)
{
    Hit hit;
    if (!m_here.definition().find(text, offset, hit))
        return nullptr;
    return makeMatch({text.ref({0, text.size()}), hit}, self);
}

} // namespace Halvorin::Text
