#ifndef UNREADNAMES_H
#define UNREADNAMES_H

#include "statechart/check/chartmodel.h"
#include "statechart/check/declaredname.h"

// What actions that nobody compiled would do with names is not known. These mark every name that they may
// mean as used and driven, so that a mistake in one place is not told of in another.

/// In a text that does not compile.
void useNamesIn(std::string_view source, DeclaredNames& names);

/// In the substates of states of an unknown type, which the compiler does not read.
void useNamesInUnreadStates(const ChartModel& chart, DeclaredNames& names);

#endif
