#ifndef UNREADACTIONS_H
#define UNREADACTIONS_H

#include "statechart/check/lints.h"

/// Whether actions, or what holds them, are of a wrong kind of value: `"onEntry": 5`. What was meant to stand
/// there may have used every name and set every variable.
bool hasUnreadableActions(const CheckedDefinition& checked);

#endif
