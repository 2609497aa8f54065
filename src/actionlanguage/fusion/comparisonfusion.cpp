#include "actionlanguage/fusion/operatorfusion.h"

using namespace Arithmetic;
using namespace OperandTypes;

namespace {

using SamePairs = List<Pair<i, i>, Pair<d, d>, Pair<l, l>, Pair<u, u>>;

template <class Operator, class BesideIntPairs>
void add(FusionTable& table)
{
    addOperator<Operator, FusedOperands::onTheRight>(table, SamePairs());
    addOperator<Operator, FusedOperands::literalsOnTheRight>(table, BesideIntPairs());
}

/// A number as a condition: whether it differs from zero.
template <class Number>
LinkedExpression fuseCondition(LinkedExpression expression)
{
    auto node = expression.take<bool>("");
    auto& plain = static_cast<CastExpression<Number, bool>&>(*node);
    ExpressionPointer<Number> zero = std::make_unique<LiteralExpression<Number>>(Number{});
    using enum OperandKind;
    switch (kindOf(*plain.operand())) {
    case variable:
        return joinedByOperator<NotEqual, variable, literal>(plain.operand(), zero);
    case literal:
        break;
    case OperandKind::computed:
        return joinedByOperator<NotEqual, computed, literal>(plain.operand(), zero);
    }
    return node;
}

/// "!" of a variable.
LinkedExpression fuseNot(LinkedExpression expression)
{
    auto node = expression.take<bool>("");
    auto& plain = static_cast<UnaryOperatorExpression<bool, LogicalNot>&>(*node);
    const auto* variable = nodeAs<VariableExpression<bool>>(*plain.operand());
    if (!variable)
        return node;
    using Code = UnaryCode<LogicalNot, VariableCode<bool>>;
    return nodeOf<true>(Code(VariableCode<bool>(variable->storage())));
}

} // namespace

void appendComparisonFusions(FusionTable& table)
{
    using BesideIntPairs = List<Pair<d, i>, Pair<l, i>, Pair<u, i>>;
    add<Less, List<Pair<d, i>, Pair<l, i>>>(table);
    add<LessEqual, BesideIntPairs>(table);
    add<Greater, BesideIntPairs>(table);
    add<GreaterEqual, BesideIntPairs>(table);
    add<Equal, BesideIntPairs>(table);
    add<NotEqual, BesideIntPairs>(table);
    table.expressions.emplace(typeid(CastExpression<i, b>), fuseCondition<i>);
    table.expressions.emplace(typeid(CastExpression<d, b>), fuseCondition<d>);
    table.expressions.emplace(typeid(UnaryOperatorExpression<b, LogicalNot>), fuseNot);
}
