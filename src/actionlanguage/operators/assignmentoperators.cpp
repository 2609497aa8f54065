#include "actionlanguage/operators/assignmentoperators.h"

#include "actionlanguage/operators/arithmetic.h"
#include "actionlanguage/operators/typelists.h"
#include "actionlanguage/runtime/functionalexpressions.h"

#include <array>

namespace {

using namespace Arithmetic;
using namespace OperandTypes;

template <class Left, class Right, class Lambda>
class FuncAssignmentOperatorImpl : public AbstractAssignmentOperatorImpl
{
public:
    FuncAssignmentOperatorImpl() : AbstractAssignmentOperatorImpl(dataTypeOf<Right>, dataTypeOf<Left>) {}

    LinkedExpression createExpression(const LinkedVariable& target, LinkedExpression right) const override
    {
        auto storage = target.storage<Left>();
        if (!storage)
            throw std::runtime_error("invalid assignment type");
        auto rightNode = right.take<Right>("invalid expression types");
        return ExpressionPointer<Left>(std::make_unique<AssignmentOperatorExpression<Left, Right, Lambda>>(
            std::move(storage), std::move(rightNode), Lambda()));
    }
};

template <class Lambda, class... Left, class... Right>
AssignmentImplementations implementationsOver(List<Pair<Left, Right>...>)
{
    AssignmentImplementations implementations;
    implementations.reserve(sizeof...(Left));
    (implementations.push_back(std::make_unique<FuncAssignmentOperatorImpl<Left, Right, Lambda>>()), ...);
    return implementations;
}

template <class Lambda, class Pairs>
AssignmentImplementations implementations()
{
    return implementationsOver<Lambda>(Pairs());
}

using AssignPairs = List<Pair<b, b>, Pair<b, i>, Pair<b, d>, Pair<c, c>, Pair<d, d>, Pair<d, i>, Pair<i, i>,
                         Pair<s, s>, Pair<l, l>, Pair<l, i>, Pair<u, u>, Pair<u, i>>;
/// There is (u,l) and no (u,u).
using ArithmeticPairs = List<Pair<i, i>, Pair<d, i>, Pair<d, d>, Pair<d, l>, Pair<d, u>, Pair<l, l>,
                             Pair<l, i>, Pair<u, l>, Pair<u, i>>;
using BitPairs = List<Pair<i, i>, Pair<l, i>, Pair<l, l>, Pair<u, i>, Pair<u, u>>;

constexpr auto table = std::to_array<AssignmentOperator>({
    {"=", implementations<Assign, AssignPairs>},
    {"+=", implementations<AssignWith<Add>, ArithmeticPairs>},
    {"-=", implementations<AssignWith<Subtract>, ArithmeticPairs>},
    {"*=", implementations<AssignWith<Multiply>, ArithmeticPairs>},
    {"/=", implementations<AssignWith<Divide>, ArithmeticPairs>},
    {"%=", implementations<AssignWith<Remainder>, BitPairs>},
    {"<<=", implementations<AssignWith<ShiftLeft>, BitPairs>},
    {">>=", implementations<AssignWith<ShiftRight>, BitPairs>},
    {"&=", implementations<AssignWith<BitAnd>, BitPairs>},
    {"^=", implementations<AssignWith<BitXor>, BitPairs>},
    {"|=", implementations<AssignWith<BitOr>, BitPairs>},
});

} // namespace

std::span<const AssignmentOperator> assignmentOperators()
{
    return table;
}
