#ifndef LINKER_H
#define LINKER_H

#include "actionlanguage/rules/abstractlinker.h"

#include <map>
#include <string>

class BuildRules;

/// What an action links to. Fused nodes do the work of several plain ones in one call; what they do is the
/// same.
enum class LinkedNodes
{
    fused,
    plain,
};

/// Turns one compiled form into executable objects. Made afresh for each link.
class LinkerActual : public AbstractLinker
{
public:
    explicit LinkerActual(const BuildRules& rules, LinkedNodes nodes = LinkedNodes::fused)
        : m_rules(rules), m_nodes(nodes)
    {}

    /// {"statements": [...], "variables": {id: type}}
    LinkedStatements linkProgram(const JsonValue& form);

    LinkedExpression linkExpression(const JsonValue& form) override;
    LinkedStatement linkStatement(const JsonValue& form) override;
    const LinkedVariable& findVariable(std::string_view id) const override;

private:
    LinkedExpression linkPlainExpression(const JsonValue& form);
    LinkedStatement linkPlainStatement(const JsonValue& form);

    const BuildRules& m_rules;
    LinkedNodes m_nodes;
    std::map<std::string, LinkedVariable, std::less<>> m_variables;
    unsigned m_depth = 0;
};

#endif
