#ifndef FINDING_H
#define FINDING_H

#include "statechart/check/findingkind.h"

#include <cstddef>
#include <string>

/// Something to say about a definition: what, how grave, and where in its text. The command line and the
/// editor show the same findings.
struct HALVWIDGETS_EXPORT Finding
{
    using Severity = FindingSeverity;

    FindingKind kind = FindingKind::invalidDefinition;
    Severity severity = Severity::error;

    /// The code in the language's table of errors, or of warnings; none for what the language does not say.
    std::optional<std::uint32_t> code;
    std::string text;

    /// The place as a path, as in `states["a"].onEntry.[0]`; empty when no value is to blame.
    std::string path;

    std::size_t line = 1;   ///< from 1
    std::size_t column = 1; ///< from 1, in bytes
    std::size_t offset = 0; ///< of the first blamed byte in the text of the definition
    std::size_t length = 0; ///< in bytes of that text; 0 for a place between two characters or at an end

    /// Its line without the line end: a piece of the text that was checked, which has to be there as long as
    /// this is looked at.
    std::string_view sourceLine;
};

#endif
