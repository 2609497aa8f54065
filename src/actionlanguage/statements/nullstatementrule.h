#ifndef NULLSTATEMENTRULE_H
#define NULLSTATEMENTRULE_H

#include "actionlanguage/rules/statementrule.h"

/// ";": null.
class NullStatementRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
