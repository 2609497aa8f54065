#ifndef DEFINITIONCHECK_H
#define DEFINITIONCHECK_H

#include "statechart/check/finding.h"
#include "statechart/check/findingrules.h"

#include <concepts>
#include <vector>

/// Compiles the definition of a digital device in memory and tells everything that is to be said of it, in
/// the order of its text: every error of its structure, the error in each action text that does not compile,
/// the language's warnings, and what is likely to be a mistake though it compiles. Never raises what is the
/// definition's fault.
///
///     for (const Finding& finding : checkDefinition(text))
///         show(finding.line, finding.column, finding.text);
HALVWIDGETS_EXPORT std::vector<Finding> checkDefinition(std::string_view definition,
                                                        const FindingRules& rules = {});

/// The findings refer to the text: it must not be gone before them.
std::vector<Finding> checkDefinition(std::same_as<std::string> auto&& definition,
                                     const FindingRules& rules = {}) = delete;

#endif
