#ifndef PARENTHESISSTAGE_H
#define PARENTHESISSTAGE_H

#include "actionlanguage/rules/expressionitem.h"

#include <functional>

/// The first thing that happens to a list of items: every "(" that groups, and is neither that of a call nor
/// that of a list of type words, is reduced with its group to one compiled item.
///
/// @param parse compiles the items between the parentheses.
/// @throws CompilationException 5 for a "(" without its ")", 7 for "()".
void compileParentheses(ItemList& items, const std::function<ExpressionCompilationObject(ItemList)>& parse);

#endif
