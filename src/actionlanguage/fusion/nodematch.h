#ifndef NODEMATCH_H
#define NODEMATCH_H

#include "actionlanguage/fusion/codes.h"

#include <typeinfo>

/// `node` when its class is just Node, or null.
template <class Node, class Base>
Node* nodeAs(Base& node)
{
    return typeid(node) == typeid(Node) ? static_cast<Node*>(&node) : nullptr;
}

template <class T>
OperandKind kindOf(AbstractExpressionImpl<T>& node)
{
    if (nodeAs<VariableExpression<T>>(node))
        return OperandKind::variable;
    return nodeAs<LiteralExpression<T>>(node) ? OperandKind::literal : OperandKind::computed;
}

template <OperandKind kind, class T>
using CodeOfKind =
    std::conditional_t<kind == OperandKind::variable, VariableCode<T>,
                       std::conditional_t<kind == OperandKind::literal, LiteralCode<T>, ExpressionCode<T>>>;

/// The code that reaches the value of a node of its kind. An expression is taken over.
template <class Code, class T>
Code takeCode(ExpressionPointer<T>& node)
{
    if constexpr (operandKind<Code> == OperandKind::variable)
        return Code(static_cast<VariableExpression<T>&>(*node).storage());
    else if constexpr (operandKind<Code> == OperandKind::literal)
        return Code(static_cast<LiteralExpression<T>&>(*node).value());
    else
        return Code(std::move(node));
}

/// Calls `use` with the code for a node of whatever kind.
template <class T, class Use>
auto withCode(ExpressionPointer<T>& node, Use use)
{
    switch (kindOf(*node)) {
    case OperandKind::variable:
        return use(takeCode<VariableCode<T>>(node));
    case OperandKind::literal:
        return use(takeCode<LiteralCode<T>>(node));
    case OperandKind::computed:
        break;
    }
    return use(takeCode<ExpressionCode<T>>(node));
}

#endif
