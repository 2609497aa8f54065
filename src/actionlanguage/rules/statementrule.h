#ifndef STATEMENTRULE_H
#define STATEMENTRULE_H

#include "actionlanguage/rules/abstractcompiler.h"
#include "actionlanguage/rules/abstractlinker.h"

/// One kind of statement. The next token chooses the rule, and the rule reads its own syntax.
class AbstractStatementRuleImpl
{
public:
    virtual ~AbstractStatementRuleImpl() = default;

    /// Whether a statement of this kind begins with `token`.
    virtual bool matches(const Token& token) const = 0;

    /// Whether link() takes this compiled form.
    virtual bool canLink(const JsonValue& form) const = 0;

    virtual JsonValue compile(TokenStream& tokens, AbstractCompiler& compiler) const = 0;
    virtual LinkedStatement link(const JsonValue& form, AbstractLinker& linker) const = 0;
};

using StatementRule = std::unique_ptr<const AbstractStatementRuleImpl>;

#endif
