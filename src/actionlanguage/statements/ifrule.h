#ifndef IFRULE_H
#define IFRULE_H

#include "actionlanguage/rules/statementrule.h"

/// "if (condition) statement" with or without "else": {"rule": "if", "cond", "onTrue"}, and with
/// "onFalse" as "ifelse".
class IfRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
