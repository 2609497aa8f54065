#ifndef SIMPLEDECLARATIONRULE_H
#define SIMPLEDECLARATIONRULE_H

#include "actionlanguage/rules/statementrule.h"

/// "int x = 1, y;". An initialiser is the assignment that it looks like, so a declaration compiles to its
/// assignments: one is a statement by itself, none or several are an array, the form of a compound
/// statement. A declaration has no form of its own, and link() always throws.
class SimpleDeclarationRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;
};

#endif
