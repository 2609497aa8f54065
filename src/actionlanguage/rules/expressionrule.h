#ifndef EXPRESSIONRULE_H
#define EXPRESSIONRULE_H

#include "actionlanguage/rules/abstractcompiler.h"
#include "actionlanguage/rules/abstractlinker.h"

#include <memory>

/// One rule of expressions: an operator, or the functions of one name. Precedence is nothing but its place
/// in the list of rules.
class AbstractExpressionRuleImpl
{
public:
    virtual ~AbstractExpressionRuleImpl() = default;

    /// Whether link() takes this compiled form.
    virtual bool canLink(const JsonValue& form) const = 0;

    /// One sweep over a list: every place where the rule's operator stands is reduced to one compiled item.
    virtual void apply(ItemList& items, AbstractCompiler& compiler) const = 0;

    virtual LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const = 0;
};

/// Owns a rule in the list.
class ExpressionRule
{
public:
    explicit ExpressionRule(std::unique_ptr<const AbstractExpressionRuleImpl> rule) : m_rule(std::move(rule))
    {}

    const AbstractExpressionRuleImpl* operator->() const { return m_rule.get(); }

private:
    std::unique_ptr<const AbstractExpressionRuleImpl> m_rule;
};

/// One kind of literal.
class AbstractLiteralRuleImpl
{
public:
    virtual ~AbstractLiteralRuleImpl() = default;

    virtual bool matches(const Token& token) const = 0;
    virtual bool canLink(const JsonValue& form) const = 0;
    virtual ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const = 0;
    virtual LinkedExpression link(const JsonValue& form) const = 0;
};

using LiteralRule = std::unique_ptr<const AbstractLiteralRuleImpl>;

#endif
