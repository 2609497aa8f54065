#ifndef LINKER_H
#define LINKER_H

#include "actionlanguage/rules/abstractlinker.h"

#include <map>
#include <string>

class BuildRules;

/// Turns one compiled form into executable objects. Made afresh for each link.
class LinkerActual : public AbstractLinker
{
public:
    explicit LinkerActual(const BuildRules& rules) : m_rules(rules) {}

    /// {"statements": [...], "variables": {id: type}}
    LinkedStatements linkProgram(const JsonValue& form);

    LinkedExpression linkExpression(const JsonValue& form) override;
    LinkedStatement linkStatement(const JsonValue& form) override;
    const LinkedVariable& findVariable(std::string_view id) const override;

private:
    const BuildRules& m_rules;
    std::map<std::string, LinkedVariable, std::less<>> m_variables;
    unsigned m_depth = 0;
};

#endif
