#ifndef SOURCETREE_H
#define SOURCETREE_H

#include "actionlanguage/tokens/diagnostic.h"
#include "actionlanguage/types/datatype.h"
#include "statechart/json/jsonvalue.h"

#include <string_view>
#include <vector>

/// What a node of a source tree stands for, and the children that it has.
enum class SourceNodeKind
{
    literal,
    variable,
    cast,           ///< operand; no token of its own
    binary,         ///< left, right
    assignment,     ///< right side
    unary,          ///< operand
    prefix,         ///< "++" or "--" before a variable
    suffix,         ///< and behind one
    comma,          ///< left, right
    call,           ///< arguments
    expression,     ///< a statement: its expression
    ifStatement,    ///< condition, branch, and the other branch if there is one
    whileStatement, ///< condition, body
    doStatement,    ///< body, condition
    forStatement,   ///< first clause, condition, third clause, body; those that are there
    block,          ///< statements
    null,           ///< the empty statement
};

/// A part of compiled code and its place in the text that it was compiled from.
struct SourceNode
{
    SourceNodeKind kind = SourceNodeKind::null;
    DataType type = DataType::unknown; ///< of an expression's value
    std::string_view text = {};        ///< operator, function name, or the characters of a string literal
    SourceSpan token = {};             ///< of the operator, name, literal or keyword
    SourceSpan extent = {};            ///< from its first token to its last, parentheses around it left out
    const JsonValue* form = nullptr;   ///< its compiled form
    std::vector<SourceNode> children = {}; ///< in the order of the text

    bool isOperator(std::string_view op) const { return kind == SourceNodeKind::binary && text == op; }
};

/// The tree of what compileStatements() gave for a text; its children are the statements. The tree refers to
/// the form, which must outlive it.
///
/// A compiled form keeps the order of its text, and every part of it but a cast began as a token. So the two
/// are walked side by side, each part taking the next token that fits: no rule of the language has to carry
/// places along. A form that belongs to another text gives a tree all the same, with places that mean
/// nothing.
SourceNode sourceTreeOfStatements(const JsonValue& form, std::string_view source);

/// The same for a condition, of type bool, or an expression, of type double.
SourceNode sourceTreeOfExpression(const JsonValue& form, DataType type, std::string_view source);

/// Calls `visitor` with a node and everything below it, outer nodes first, in the order of the text.
template <class Visitor>
void visitSourceTree(const SourceNode& node, Visitor&& visitor)
{
    visitor(node);
    for (const SourceNode& child : node.children)
        visitSourceTree(child, visitor);
}

#endif
