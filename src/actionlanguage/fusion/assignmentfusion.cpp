#include "actionlanguage/fusion/fusednodes.h"
#include "actionlanguage/fusion/fusiontable.h"
#include "actionlanguage/fusion/nodematch.h"
#include "actionlanguage/operators/typelists.h"
#include "actionlanguage/runtime/functionalexpressions.h"

using namespace Arithmetic;
using namespace OperandTypes;

namespace {

template <class Operator, class Left, class Right>
std::unique_ptr<AbstractStatementImpl> fuseAssignment(LinkedExpression expression)
{
    auto node = expression.take<Left>("");
    auto& plain = static_cast<AssignmentOperatorExpression<Left, Right, Operator>&>(*node);
    const std::shared_ptr<Left>& storage = plain.storage();
    if constexpr (std::is_same_v<Operator, Assign> && std::is_same_v<Left, Right>)
        if (auto* right = dynamic_cast<AssignableExpression<Left>*>(plain.right().get()))
            return right->assignedTo(storage);
    return withCode(plain.right(), [&]<class Code>(Code code) {
        return std::unique_ptr<AbstractStatementImpl>(
            std::make_unique<AssignStatement<Operator, Left, Code>>(storage, std::move(code)));
    });
}

template <class Operator, class... Left, class... Right>
void add(FusionTable& table, List<Pair<Left, Right>...>)
{
    (table.effects.emplace(typeid(AssignmentOperatorExpression<Left, Right, Operator>),
                           fuseAssignment<Operator, Left, Right>),
     ...);
}

template <class Lambda, class T, int step>
std::unique_ptr<AbstractStatementImpl> fuseStep(LinkedExpression expression)
{
    const auto node = expression.take<T>("");
    const auto& plain = static_cast<const IncDecExpression<T, Lambda>&>(*node);
    return std::make_unique<StepStatement<T>>(plain.storage(), static_cast<T>(step));
}

template <template <class> class Step, class... T>
void addSteps(FusionTable& table, List<T...>)
{
    (table.effects.emplace(typeid(IncDecExpression<T, Step<Add>>), fuseStep<Step<Add>, T, 1>), ...);
    (table.effects.emplace(typeid(IncDecExpression<T, Step<Subtract>>), fuseStep<Step<Subtract>, T, -1>),
     ...);
}

} // namespace

void appendAssignmentFusions(FusionTable& table)
{
    using AssignPairs =
        List<Pair<b, b>, Pair<i, i>, Pair<d, d>, Pair<d, i>, Pair<l, l>, Pair<l, i>, Pair<u, u>, Pair<u, i>>;
    using SumPairs = List<Pair<i, i>, Pair<d, d>, Pair<d, i>, Pair<l, l>, Pair<l, i>, Pair<u, i>>;
    using BitPairs = List<Pair<i, i>, Pair<l, i>, Pair<u, i>, Pair<u, u>>;
    add<Assign>(table, AssignPairs());
    add<AssignWith<Add>>(table, SumPairs());
    add<AssignWith<Subtract>>(table, SumPairs());
    add<AssignWith<Multiply>>(table, SumPairs());
    add<AssignWith<BitAnd>>(table, BitPairs());
    add<AssignWith<BitOr>>(table, BitPairs());
    add<AssignWith<BitXor>>(table, BitPairs());
    add<AssignWith<ShiftLeft>>(table, BitPairs());
    add<AssignWith<ShiftRight>>(table, BitPairs());
    addSteps<PrefixStep>(table, List<i, l, u>());
    addSteps<SuffixStep>(table, List<i, l, u>());
}
