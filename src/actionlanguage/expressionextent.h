#ifndef EXPRESSIONEXTENT_H
#define EXPRESSIONEXTENT_H

#include "actionlanguage/rules/itemstream.h"
#include "actionlanguage/tokens/tokenstream.h"

/// How far an expression reaches: the items up to a ";" at whatever depth, a closing bracket that was not
/// opened in it, or a comma outside of all brackets where none is allowed. They are consumed.
/// @throws NestingException where brackets nest deeper than `languageMaximumDepth`, or hold far too much at
/// a depth.
ItemList gatherExpression(TokenStream& tokens, bool commaAllowed);
ItemList gatherExpression(ItemStream& items, bool commaAllowed);

#endif
