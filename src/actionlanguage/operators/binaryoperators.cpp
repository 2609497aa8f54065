#include "actionlanguage/operators/binaryoperators.h"

#include "actionlanguage/operators/arithmetic.h"
#include "actionlanguage/operators/typelists.h"
#include "actionlanguage/runtime/functionalexpressions.h"

#include <array>

namespace {

using namespace Arithmetic;
using namespace OperandTypes;

template <class Left, class Right, class Lambda>
class FunctionBinaryOperatorImplementation : public AbstractBinaryOperatorImplementation
{
public:
    using Result = std::invoke_result_t<Lambda, Left, Right>;

    FunctionBinaryOperatorImplementation()
        : AbstractBinaryOperatorImplementation(dataTypeOf<Left>, dataTypeOf<Right>)
    {}

    LinkedExpression createExpression(LinkedExpression left, LinkedExpression right) const override
    {
        constexpr auto words = "invalid executable link";
        auto leftNode = left.take<Left>(words);
        auto rightNode = right.take<Right>(words);
        return ExpressionPointer<Result>(
            std::make_unique<BinaryOperatorExpression<Result, Left, Right, Lambda>>(
                std::move(leftNode), std::move(rightNode), Lambda()));
    }

    DataType resultType() const override { return dataTypeOf<Result>; }
};

template <class Lambda, class... Left, class... Right>
BinaryImplementations implementationsOver(List<Pair<Left, Right>...>)
{
    BinaryImplementations implementations;
    implementations.reserve(sizeof...(Left));
    (implementations.push_back(std::make_unique<FunctionBinaryOperatorImplementation<Left, Right, Lambda>>()),
     ...);
    return implementations;
}

template <class Lambda, class Pairs>
BinaryImplementations implementations()
{
    return implementationsOver<Lambda>(Pairs());
}

/// Every pair of the four number types.
using NumberPairs = List<Pair<i, i>, Pair<i, d>, Pair<i, l>, Pair<i, u>, //
                         Pair<d, i>, Pair<d, d>, Pair<d, l>, Pair<d, u>, //
                         Pair<l, i>, Pair<l, d>, Pair<l, l>, Pair<l, u>, //
                         Pair<u, i>, Pair<u, d>, Pair<u, l>, Pair<u, u>>;
using RemainderPairs = List<Pair<i, i>, Pair<l, l>, Pair<l, i>, Pair<u, u>>;
using ShiftPairs = List<Pair<i, i>, Pair<l, l>, Pair<u, u>>;
using BitPairs = List<Pair<i, i>, Pair<l, i>, Pair<l, l>, Pair<u, i>, Pair<u, u>>;
using LogicalPairs = List<Pair<b, b>>;
using LessPairs = List<Pair<i, i>, Pair<i, d>, Pair<i, l>, Pair<i, u>, Pair<d, i>, Pair<d, d>, Pair<d, l>,
                       Pair<d, u>, Pair<l, i>, Pair<l, d>, Pair<l, l>, Pair<u, d>, Pair<u, u>, Pair<c, c>>;
using OrderPairs = Joined<LessPairs, List<Pair<u, i>>>::Type;
using EqualityPairs = Joined<NumberPairs, List<Pair<c, c>, Pair<b, b>>>::Type;

constexpr auto table = std::to_array<BinaryOperator>({
    {"*", implementations<Multiply, NumberPairs>},
    {"/", implementations<Divide, NumberPairs>},
    {"%", implementations<Remainder, RemainderPairs>},
    {"+", implementations<Add, NumberPairs>},
    {"-", implementations<Subtract, NumberPairs>},
    {"<<", implementations<ShiftLeft, ShiftPairs>},
    {">>", implementations<ShiftRight, ShiftPairs>},
    {"<", implementations<Less, LessPairs>},
    {"<=", implementations<LessEqual, OrderPairs>},
    {">", implementations<Greater, OrderPairs>},
    {">=", implementations<GreaterEqual, OrderPairs>},
    {"==", implementations<Equal, EqualityPairs>},
    {"!=", implementations<NotEqual, EqualityPairs>},
    {"&", implementations<BitAnd, BitPairs>},
    {"^", implementations<BitXor, BitPairs>},
    {"|", implementations<BitOr, BitPairs>},
    {"&&", implementations<LogicalAnd, LogicalPairs>},
    {"||", implementations<LogicalOr, LogicalPairs>},
});

} // namespace

std::span<const BinaryOperator> binaryOperators()
{
    return table;
}
