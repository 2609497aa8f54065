#ifndef EXPRESSIONSTATEMENTRULE_H
#define EXPRESSIONSTATEMENTRULE_H

#include "actionlanguage/rules/statementrule.h"

/// An expression and ";": {"rule": "expr", "type", "expr"}.
class ExpressionStatementRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
