#ifndef DOWHILERULE_H
#define DOWHILERULE_H

#include "actionlanguage/rules/statementrule.h"

/// "do statement while (condition);": {"rule": "do", "cond", "loop"}.
class DoWhileRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
