#include "actionlanguage/runtime/basicexpressions.h"

namespace {

template <class T>
ExpressionPointer<void> discardedNode(ExpressionPointer<T> node)
{
    return std::make_unique<DiscardExpression<T>>(std::move(node));
}

ExpressionPointer<void> discardedNode(ExpressionPointer<void> node)
{
    return node;
}

} // namespace

ExpressionPointer<void> discarded(LinkedExpression expression)
{
    return expression.visit([](auto& node) { return discardedNode(std::move(node)); });
}
