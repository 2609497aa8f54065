#ifndef EXPRESSIONS_H
#define EXPRESSIONS_H

#include "conversion/scanners/enumeratedscanner.h"

#include <array>

/// The expressions of the rules with their scanners. To add one: write it here, its scanner beside the
/// others, and give it to the library with what it converts to; the tests hold the scanner of each against
/// its expression.
namespace Halvorin::Text::Expressions {

// Block rules of reStructuredText. What a group is stands behind the rule.
RuleExpression blankLine();
RuleExpression gridTable();                          ///< indent
RuleExpression simpleTable();                        ///< border, header, content
RuleExpression overlinedHeading();                   ///< type, title
RuleExpression underlinedHeading();                  ///< type, title
RuleExpression directive();                          ///< name, value, content
RuleExpression bulletList();                         ///< type, content
RuleExpression enumeratedList(const Marker& marker); ///< xrows, arows
RuleExpression definitionList();
RuleExpression literalBlock(); ///< indent, pretext, block
RuleExpression doctest();      ///< content
RuleExpression paragraph();    ///< content
/// Not a rule of its own: a paragraph may take it instead.
RuleExpression paragraphLiteral(); ///< indent, pretext, block

/// The fifteen kinds of enumerated lists, in the order of their rules.
inline constexpr std::array<Marker, 15> enumeratedMarkers = {{
    {EnumeratedKind::numeric, MarkerForm::period},
    {EnumeratedKind::numeric, MarkerForm::closingParenthesis},
    {EnumeratedKind::numeric, MarkerForm::enclosingParentheses},
    {EnumeratedKind::romanNumeral, MarkerForm::period, true},
    {EnumeratedKind::romanNumeral, MarkerForm::period, false},
    {EnumeratedKind::romanNumeral, MarkerForm::closingParenthesis, true},
    {EnumeratedKind::romanNumeral, MarkerForm::closingParenthesis, false},
    {EnumeratedKind::romanNumeral, MarkerForm::enclosingParentheses, true},
    {EnumeratedKind::romanNumeral, MarkerForm::enclosingParentheses, false},
    {EnumeratedKind::alphabetic, MarkerForm::period, true},
    {EnumeratedKind::alphabetic, MarkerForm::period, false},
    {EnumeratedKind::alphabetic, MarkerForm::closingParenthesis, true},
    {EnumeratedKind::alphabetic, MarkerForm::closingParenthesis, false},
    {EnumeratedKind::alphabetic, MarkerForm::enclosingParentheses, true},
    {EnumeratedKind::alphabetic, MarkerForm::enclosingParentheses, false},
}};

// Block rules of docstrings.
RuleExpression labelledFunction(); ///< content
RuleExpression function();         ///< content
RuleExpression module();
RuleExpression parameter();
RuleExpression classLabel();
RuleExpression variable();
RuleExpression seeAlso(); ///< content

// Inline rules.
RuleExpression emphasis();     ///< type, content
RuleExpression escape();       ///< the character
RuleExpression linkWithText(); ///< text, url
RuleExpression bareLink();
RuleExpression crossReference();

// Parts of lists, found anywhere in them.
RuleExpression markedItem(const Marker& marker); ///< idx, content
RuleExpression automaticItem(MarkerForm form);   ///< idx (never there), content
RuleExpression definitionItem();                 ///< def, content
RuleExpression seeAlsoItem();                    ///< name, description, nameOnly

} // namespace Halvorin::Text::Expressions

#endif
