#ifndef WHILERULE_H
#define WHILERULE_H

#include "actionlanguage/rules/statementrule.h"

/// "while (condition) statement": {"rule": "while", "cond", "loop"}.
class WhileRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
