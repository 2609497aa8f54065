#include "actionlanguage/fusion/operatorfusion.h"

using namespace Arithmetic;
using namespace OperandTypes;

namespace {

using SamePairs = List<Pair<i, i>, Pair<l, l>, Pair<u, u>>;

template <class Operator, FusedOperands operands, class BesideIntPairs>
void add(FusionTable& table)
{
    addOperator<Operator, operands>(table, SamePairs());
    addOperator<Operator, FusedOperands::literalsOnTheRight>(table, BesideIntPairs());
}

} // namespace

void appendBitFusions(FusionTable& table)
{
    add<Remainder, FusedOperands::onTheRight, List<Pair<l, i>>>(table);
    add<ShiftLeft, FusedOperands::variablesAndLiterals, List<>>(table);
    add<ShiftRight, FusedOperands::variablesAndLiterals, List<>>(table);
    add<BitAnd, FusedOperands::onTheRight, List<Pair<l, i>, Pair<u, i>>>(table);
    add<BitXor, FusedOperands::onTheRight, List<Pair<l, i>, Pair<u, i>>>(table);
    add<BitOr, FusedOperands::onTheRight, List<Pair<l, i>, Pair<u, i>>>(table);
}
