#ifndef DEFINITIONCHECK_H
#define DEFINITIONCHECK_H

#include "statechart/finding.h"

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

/// Compiles the definition of a digital device in memory and tells everything that is to be said of it, in
/// the order of its text: the error that ends the compile (several when the tokeniser records several in that
/// text), and the language's warnings of every action text up to there. Never raises what is the
/// definition's fault.
///
///     for (const Finding& finding : checkDefinition(text))
///         show(finding.line, finding.column, finding.text);
HALVWIDGETS_EXPORT std::vector<Finding> checkDefinition(std::string_view definition);

/// The findings refer to the text: it must not be gone before them.
std::vector<Finding> checkDefinition(std::same_as<std::string> auto&& definition) = delete;

#endif
