#ifndef LCOVTRACEFILE_H
#define LCOVTRACEFILE_H

#include "reports/coverage.h"

#include <string>
#include <string_view>

/// Coverage as a tracefile of LCOV (geninfo(1), "FILES"), for the tools that show and merge those: a state is
/// a function, the line of a state or a transition is a line of code, the outcomes of conditions are
/// branches.
/// @param path of the definition, as the tracefile names it
/// @param definition its text, which has the lines
std::string lcovText(const Coverage& coverage, const std::string& path, std::string_view definition);

#endif
