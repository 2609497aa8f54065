#ifndef ACTIONFINDINGS_H
#define ACTIONFINDINGS_H

#include "actionlanguage/tokens/diagnostic.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// The tokeniser had findings in a text of actions or conditions. what() words the first of them.
class HALVWIDGETS_EXPORT ActionFindingsException : public std::runtime_error
{
public:
    ActionFindingsException(const std::string& text, std::vector<Diagnostic> findings)
        : std::runtime_error(text), m_findings(std::move(findings))
    {}

    const std::vector<Diagnostic>& findings() const { return m_findings; }

private:
    std::vector<Diagnostic> m_findings;
};

#endif
