#include "actionlanguage/fusion/fusiontable.h"

const FusionTable& fusionTable()
{
    static const FusionTable shared = [] {
        FusionTable table;
        appendArithmeticFusions(table);
        appendBitFusions(table);
        appendComparisonFusions(table);
        appendAssignmentFusions(table);
        appendStatementFusions(table);
        return table;
    }();
    return shared;
}
