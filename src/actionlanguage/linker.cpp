#include "actionlanguage/linker.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/depthguard.h"
#include "actionlanguage/fusion/fusion.h"
#include "actionlanguage/runtime/linkexceptions.h"

namespace {

/// Expressions and blocks at their deepest, one in the other: a form from elsewhere that goes further would
/// overflow the stack.
constexpr unsigned maximumDepth = 2 * languageMaximumDepth + 2;

void tooDeep()
{
    throw std::runtime_error("compiled code is nested too deeply");
}

} // namespace

LinkedStatements LinkerActual::linkProgram(const JsonValue& form)
{
    for (const JsonMember& variable : form.member("variables").asObject())
        m_variables.try_emplace(variable.key, variable.key, linkedType(variable.value.asString()));

    const JsonArray& forms = form.member("statements").asArray();
    std::vector<LinkedStatement> statements;
    statements.reserve(forms.size());
    for (const JsonValue& statement : forms)
        statements.push_back(linkStatement(statement));
    return LinkedStatements(std::move(statements));
}

LinkedExpression LinkerActual::linkExpression(const JsonValue& form)
{
    const DepthGuard guard(m_depth, maximumDepth, tooDeep);
    LinkedExpression expression = linkPlainExpression(form);
    return m_nodes == LinkedNodes::fused ? fused(std::move(expression)) : std::move(expression);
}

LinkedStatement LinkerActual::linkStatement(const JsonValue& form)
{
    const DepthGuard guard(m_depth, maximumDepth, tooDeep);
    LinkedStatement statement = linkPlainStatement(form);
    return m_nodes == LinkedNodes::fused ? fused(std::move(statement)) : std::move(statement);
}

LinkedExpression LinkerActual::linkPlainExpression(const JsonValue& form)
{
    for (const LiteralRule& rule : m_rules.literalRules())
        if (rule->canLink(form))
            return rule->link(form);
    if (m_rules.variableRule().canLink(form))
        return m_rules.variableRule().link(form, *this);
    if (m_rules.castRule().canLink(form))
        return m_rules.castRule().link(form, *this);
    for (const ExpressionRule& rule : m_rules.expressionRules())
        if (rule->canLink(form))
            return rule->link(form, *this);
    throw std::runtime_error("unable to link expression object");
}

LinkedStatement LinkerActual::linkPlainStatement(const JsonValue& form)
{
    for (const StatementRule& rule : m_rules.statementRules())
        if (rule->canLink(form))
            return rule->link(form, *this);
    throw std::runtime_error("unable to link statement object");
}

const LinkedVariable& LinkerActual::findVariable(std::string_view id) const
{
    const auto found = m_variables.find(id);
    if (found == m_variables.end())
        throw VariableNotFoundException(std::string(id));
    return found->second;
}
