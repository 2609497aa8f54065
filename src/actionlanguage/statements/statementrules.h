#ifndef STATEMENTRULES_H
#define STATEMENTRULES_H

#include "actionlanguage/rules/statementrule.h"

#include <vector>

/// All kinds of statements, in the order in which they are asked.
/// To add one, derive a rule in this folder and append it in statementrules.cpp.
std::vector<StatementRule> constructStatementRules();

#endif
