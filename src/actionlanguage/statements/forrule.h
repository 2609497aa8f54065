#ifndef FORRULE_H
#define FORRULE_H

#include "actionlanguage/statements/expressionstatementrule.h"
#include "actionlanguage/statements/simpledeclarationrule.h"

/// "for (init; cond; iter) statement": {"rule": "for", "init", "cond", "iter", "loop"}, where a clause that
/// the text leaves out is left out. Such a loop compiles, and does not link.
class ForRule : public AbstractStatementRuleImpl
{
public:
    bool matches(const Token& token) const override;
    bool canLink(const JsonValue& form) const override;
    JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const override;
    LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const override;

private:
    JsonValue compileInit(TokenStream& tokens, AbstractCompiler& compiler) const;

    SimpleDeclarationRule m_declaration;
    ExpressionStatementRule m_expression;
};

#endif
