#ifndef BLOCKSCANNERS_H
#define BLOCKSCANNERS_H

#include "conversion/core/expression.h"

/// Scanners of block rules: whether a rule matches at the position of a text, found line by line. The groups
/// of a hit come in the order in which the rule's expression names them (blockexpressions.cpp). They hold
/// where line feeds are the only ends of lines; blank lines, doctests, simple tables and paragraphs always.
namespace Halvorin::Text {

bool scanBlankLine(SourceText& text, Hit& hit);
bool scanGridTable(SourceText& text, Hit& hit);
bool scanSimpleTable(SourceText& text, Hit& hit);
bool scanOverlinedHeading(SourceText& text, Hit& hit);
bool scanUnderlinedHeading(SourceText& text, Hit& hit);
bool scanDirective(SourceText& text, Hit& hit);
bool scanBulletList(SourceText& text, Hit& hit);
bool scanDefinitionList(SourceText& text, Hit& hit);
bool scanLiteralBlock(SourceText& text, Hit& hit);
bool scanDoctest(SourceText& text, Hit& hit);
bool scanParagraph(SourceText& text, Hit& hit);
/// A paragraph together with the literal block that it announces, however far behind it.
bool scanParagraphLiteral(SourceText& text, Hit& hit);

bool scanLabelledFunction(SourceText& text, Hit& hit);
bool scanFunction(SourceText& text, Hit& hit);
bool scanModule(SourceText& text, Hit& hit);
/// The whole line when it begins with the label.
bool scanLabel(SourceText& text, const QString& label, Hit& hit);
bool scanSeeAlso(SourceText& text, Hit& hit);

} // namespace Halvorin::Text

#endif
