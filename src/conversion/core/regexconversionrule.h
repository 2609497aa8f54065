#ifndef REGEXCONVERSIONRULE_H
#define REGEXCONVERSIONRULE_H

#include "conversion/core/conversionaccess.h"
#include "conversion/core/expression.h"

#include <optional>
#include <utility>

namespace Halvorin::Text {

/// A match of an expression: what it captured, the rule, and the text that was searched.
class RegExConversionMatchImpl : public AbstractConversionMatchImpl
{
public:
    RegExConversionMatchImpl(const Captures& captures, const ConversionRule& rule);

    int end() const override;
    int length() const override;
    bool hasMatch() const override { return !m_captures.hit().whole.isNull(); }
    const ConversionRule& rule() const override { return m_rule; }
    int start() const override { return m_captures.hit().whole.start; }
    QStringRef source() const override { return m_captures.source(); }

    const Captures& captures() const { return m_captures; }

private:
    Captures m_captures;
    ConversionRule m_rule;
};

/// A match whose length its rule may change while it converts, having looked at more text than it matched.
class RegExConversionUpdateMatchImpl : public RegExConversionMatchImpl
{
public:
    using RegExConversionMatchImpl::RegExConversionMatchImpl;

    int length() const override;
    void setLength(std::size_t length) { m_length = length; }

private:
    std::optional<std::size_t> m_length;
};

/// What a match of a rule below captured.
const Captures& capturesOf(const ConversionMatch& match);

/// A rule of an expression, which is compiled when the rule is made. Its scanner is asked where it knows the
/// answer.
class AbstractRegExConversionRuleImpl : public AbstractConversionRuleImpl
{
public:
    ConversionMatch match(const QStringRef& source, int offset, const ConversionRule& self) override;
    AbstractConversionMatchPointer matchHere(SourceText& text, const ConversionRule& self) override;
    AbstractConversionMatchPointer matchFrom(SourceText& text, int offset,
                                             const ConversionRule& self) override;
    bool isLocal() const override { return m_here.definition().find != nullptr; }

protected:
    explicit AbstractRegExConversionRuleImpl(RuleExpression definition);

    virtual AbstractConversionMatchPointer makeMatch(const Captures& captures,
                                                     const ConversionRule& rule) const = 0;

private:
    Expression m_expression;
    PositionedExpression m_here;
};

/// Converts by a callable that is given the ConversionMatch and returns the text.
template <class Converter>
class RegExConversionRuleImpl : public AbstractRegExConversionRuleImpl
{
public:
    RegExConversionRuleImpl(RuleExpression definition, Converter converter)
        : AbstractRegExConversionRuleImpl(std::move(definition)), m_converter(std::move(converter))
    {}

    QString convert(ConversionMatch& match) override { return m_converter(match); }

protected:
    AbstractConversionMatchPointer makeMatch(const Captures& captures,
                                             const ConversionRule& rule) const override
    {
        return std::make_unique<RegExConversionMatchImpl>(captures, rule);
    }

private:
    Converter m_converter;
};

/// The same for a callable that returns the text and the length of what it took.
template <class Converter>
class RegExConversionUpdaterRuleImpl : public AbstractRegExConversionRuleImpl
{
public:
    RegExConversionUpdaterRuleImpl(RuleExpression definition, Converter converter)
        : AbstractRegExConversionRuleImpl(std::move(definition)), m_converter(std::move(converter))
    {}

    QString convert(ConversionMatch& match) override
    {
        std::pair<QString, std::size_t> converted = m_converter(match);
        static_cast<RegExConversionUpdateMatchImpl*>(match.impl())->setLength(converted.second);
        return std::move(converted.first);
    }

protected:
    AbstractConversionMatchPointer makeMatch(const Captures& captures,
                                             const ConversionRule& rule) const override
    {
        return std::make_unique<RegExConversionUpdateMatchImpl>(captures, rule);
    }

private:
    Converter m_converter;
};

template <class Converter>
ConversionRule makeRule(RuleExpression definition, Converter converter)
{
    return ConversionAccess::makeRule(
        std::make_unique<RegExConversionRuleImpl<Converter>>(std::move(definition), std::move(converter)));
}

template <class Converter>
ConversionRule makeUpdaterRule(RuleExpression definition, Converter converter)
{
    return ConversionAccess::makeRule(std::make_unique<RegExConversionUpdaterRuleImpl<Converter>>(
        std::move(definition), std::move(converter)));
}

} // namespace Halvorin::Text

#endif
