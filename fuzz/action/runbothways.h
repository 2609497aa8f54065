#ifndef RUNBOTHWAYS_H
#define RUNBOTHWAYS_H

#include "statechart/json/jsonvalue.h"

// Each links a compiled form to plain nodes and to fused ones, bounds and runs both, and ends the process
// when they do not the same. A form that does not link raises what linking raises.

void runStatementsBothWays(JsonValue compiled);
void evaluateBothWays(JsonValue compiled);

#endif
