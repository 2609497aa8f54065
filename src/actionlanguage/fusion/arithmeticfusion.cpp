#include "actionlanguage/fusion/operatorfusion.h"

using namespace Arithmetic;
using namespace OperandTypes;

namespace {

using SamePairs = List<Pair<i, i>, Pair<d, d>, Pair<l, l>, Pair<u, u>>;
using BesideIntPairs = List<Pair<d, i>, Pair<l, i>, Pair<u, i>>;

template <class Operator>
void add(FusionTable& table)
{
    addOperator<Operator, FusedOperands::variablesAndLiterals>(table, SamePairs());
    addOperator<Operator, FusedOperands::literalsOnTheRight>(table, BesideIntPairs());
}

} // namespace

void appendArithmeticFusions(FusionTable& table)
{
    add<Add>(table);
    add<Subtract>(table);
    add<Multiply>(table);
    add<Divide>(table);
}
