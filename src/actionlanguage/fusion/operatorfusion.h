#ifndef OPERATORFUSION_H
#define OPERATORFUSION_H

#include "actionlanguage/fusion/fusednodes.h"
#include "actionlanguage/fusion/fusiontable.h"
#include "actionlanguage/fusion/nodematch.h"
#include "actionlanguage/operators/typelists.h"
#include "actionlanguage/runtime/functionalexpressions.h"

// How a BinaryOperatorExpression takes in its operands.

/// Which operands a row fuses. Each kind of operand on each side is a class of its own: what is rare is not
/// worth its size.
enum class FusedOperands
{
    variablesAndLiterals, ///< on either side
    onTheRight,           ///< with a variable or an expression on the left
    literalsOnTheRight,   ///< such as the int beside an int64_t, which has no literals
};

constexpr bool areFused(FusedOperands operands, OperandKind left, OperandKind right)
{
    switch (operands) {
    case FusedOperands::variablesAndLiterals:
        return left != right || left == OperandKind::variable;
    case FusedOperands::onTheRight:
        return left != OperandKind::literal && right != OperandKind::computed;
    case FusedOperands::literalsOnTheRight:
        return left != OperandKind::literal && right == OperandKind::literal;
    }
    return false;
}

/// Whether a code is worth statements of its own: the commoner operands of the commoner types.
template <class Code>
constexpr bool goesIntoStatement(OperandKind left, OperandKind right)
{
    using Operand = typename Code::Operand;
    return left != OperandKind::literal && right != OperandKind::computed &&
           (std::is_same_v<Operand, std::int32_t> || std::is_same_v<Operand, double>);
}

template <bool isForStatement, class Code>
LinkedExpression nodeOf(Code code)
{
    using Value = typename Code::Value;
    if constexpr (!isForStatement)
        return ExpressionPointer<Value>(std::make_unique<FusedExpression<Code>>(std::move(code)));
    else if constexpr (std::is_same_v<Value, bool>)
        return ExpressionPointer<bool>(std::make_unique<FusedCondition<Code>>(std::move(code)));
    else
        return ExpressionPointer<Value>(std::make_unique<FusedAssignable<Code>>(std::move(code)));
}

/// The operator that takes a Divisor in place of an int on the right, if there is one.
template <class Operator>
struct WithDivisor
{};
template <>
struct WithDivisor<Arithmetic::Divide>
{
    using Operator = DivideByDivisor;
};
template <>
struct WithDivisor<Arithmetic::Remainder>
{
    using Operator = RemainderByDivisor;
};

template <class Operator, OperandKind leftKind, OperandKind rightKind, class Left, class Right>
LinkedExpression joinedByOperator(ExpressionPointer<Left>& left, ExpressionPointer<Right>& right)
{
    using LeftCode = CodeOfKind<leftKind, Left>;
    using RightCode = CodeOfKind<rightKind, Right>;
    if constexpr (std::is_same_v<Left, std::int32_t> && std::is_same_v<Right, std::int32_t> &&
                  rightKind == OperandKind::literal && requires { typename WithDivisor<Operator>::Operator; })
        if (const std::int32_t value = takeCode<RightCode>(right).value(); Divisor::fits(value)) {
            using Code = BinaryCode<typename WithDivisor<Operator>::Operator, LeftCode, LiteralCode<Divisor>>;
            return nodeOf<goesIntoStatement<Code>(leftKind, rightKind)>(
                Code(takeCode<LeftCode>(left), LiteralCode<Divisor>(Divisor(value))));
        }
    using Code = BinaryCode<Operator, LeftCode, RightCode>;
    return nodeOf<goesIntoStatement<Code>(leftKind, rightKind)>(
        Code(takeCode<LeftCode>(left), takeCode<RightCode>(right)));
}

template <class Operator, class Left, class Right, FusedOperands operands>
LinkedExpression fuseOperator(LinkedExpression expression)
{
    using Result = std::invoke_result_t<Operator, Left, Right>;
    using enum OperandKind;
    auto node = expression.take<Result>("");
    auto& plain = static_cast<BinaryOperatorExpression<Result, Left, Right, Operator>&>(*node);
    const OperandKind leftKind = kindOf(*plain.left());
    const OperandKind rightKind = kindOf(*plain.right());
    LinkedExpression joined;
    const auto joinWhen = [&]<OperandKind left, OperandKind right>(KindPair<left, right>) {
        if constexpr (areFused(operands, left, right))
            if (leftKind == left && rightKind == right)
                joined = joinedByOperator<Operator, left, right>(plain.left(), plain.right());
    };
    joinWhen(KindPair<variable, variable>());
    joinWhen(KindPair<variable, literal>());
    joinWhen(KindPair<variable, computed>());
    joinWhen(KindPair<literal, variable>());
    joinWhen(KindPair<literal, computed>());
    joinWhen(KindPair<computed, variable>());
    joinWhen(KindPair<computed, literal>());
    return joined.type() == DataType::unknown ? LinkedExpression(std::move(node)) : std::move(joined);
}

template <class Operator, FusedOperands operands, class... Left, class... Right>
void addOperator(FusionTable& table, OperandTypes::List<OperandTypes::Pair<Left, Right>...>)
{
    (table.expressions.emplace(
         typeid(BinaryOperatorExpression<std::invoke_result_t<Operator, Left, Right>, Left, Right, Operator>),
         fuseOperator<Operator, Left, Right, operands>),
     ...);
}

#endif
