#ifndef FUSION_H
#define FUSION_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"

/// A node just linked, or one that does the same with fewer calls; its operands went through here before.
LinkedExpression fused(LinkedExpression expression);
LinkedStatement fused(LinkedStatement statement);

#endif
