#ifndef BOUNDEDRULES_H
#define BOUNDEDRULES_H

#include "actionlanguage/buildrules.h"

/// The rules of a device's code, and before them the functions that bound(form) puts in, and a "format" whose
/// texts cannot grow without end. Code linked by them must run against an AnyActor.
const BuildRules& boundedRules();

#endif
