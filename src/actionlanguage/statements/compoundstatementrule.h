#ifndef COMPOUNDSTATEMENTRULE_H
#define COMPOUNDSTATEMENTRULE_H

#include "actionlanguage/rules/statementrule.h"

/// "{ ... }", with a scope of its own: an array of statements.
class CompoundStatementRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
