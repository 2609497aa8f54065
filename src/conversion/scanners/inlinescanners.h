#ifndef INLINESCANNERS_H
#define INLINESCANNERS_H

#include "conversion/core/expression.h"

/// Scanners of inline rules: the first hit from a place on. The groups of a hit come in the order in which
/// the rule's expression names them (inlineexpressions.cpp).
namespace Halvorin::Text {

bool findEmphasis(SourceText& text, int from, Hit& hit);
bool findEscape(SourceText& text, int from, Hit& hit);
bool findLinkWithText(SourceText& text, int from, Hit& hit);
bool findBareLink(SourceText& text, int from, Hit& hit);
bool findCrossReference(SourceText& text, int from, Hit& hit);

} // namespace Halvorin::Text

#endif
