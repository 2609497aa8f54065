#ifndef LITERALRULES_H
#define LITERALRULES_H

#include "actionlanguage/rules/expressionrule.h"

#include <vector>

/// A JSON integer.
class IntLiteralRule : public AbstractLiteralRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    /// @throws LiteralConversionException
    ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form) const override;
};

/// A JSON real.
class DoubleLiteralRule : public AbstractLiteralRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    /// @throws LiteralConversionException
    ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form) const override;
};

/// A JSON string.
class StringLiteralRule : public AbstractLiteralRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form) const override;
};

/// JSON true or false.
class BoolLiteralRule : public AbstractLiteralRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form) const override;
};

/// {"rule": "charliteral", "value": text}. The text may have any length: the value is its first byte, and 0
/// when it is empty.
class CharLiteralRule : public AbstractLiteralRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    ExpressionCompilationObject compile(const Token& token, AbstractCompiler& compiler) const override;
    LinkedExpression link(const JsonValue& form) const override;
};

/// All of them, in the order in which they are tried.
/// To add one, derive a class above and append it in literalrules.cpp.
std::vector<LiteralRule> constructLiteralRules();

#endif
