#ifndef FUSIONTABLE_H
#define FUSIONTABLE_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"

#include <typeindex>
#include <unordered_map>

/// What takes the place of which plain node, by the node's class. A class that is not in the table stays as
/// it is. Built once and only read.
struct FusionTable
{
    /// An expression by one that does the same.
    using ExpressionFusion = LinkedExpression (*)(LinkedExpression);
    /// An expression of which nobody takes the value by a statement that has its effect.
    using EffectFusion = std::unique_ptr<AbstractStatementImpl> (*)(LinkedExpression);
    /// A statement by one that does the same; the argument is of the class that the entry stands under.
    using StatementFusion = std::unique_ptr<AbstractStatementImpl> (*)(AbstractStatementImpl&);

    template <class Fusion>
    using ByClass = std::unordered_map<std::type_index, Fusion>;

    ByClass<ExpressionFusion> expressions;
    ByClass<EffectFusion> effects;
    ByClass<StatementFusion> statements;
};

/// The entry for the class of `node`, or null.
template <class Fusion, class Node>
Fusion findFusion(const FusionTable::ByClass<Fusion>& entries, const Node& node)
{
    const auto found = entries.find(typeid(node));
    return found == entries.end() ? nullptr : found->second;
}

const FusionTable& fusionTable();

// Each appends its entries.
void appendArithmeticFusions(FusionTable& table);
void appendBitFusions(FusionTable& table);
void appendComparisonFusions(FusionTable& table);
void appendAssignmentFusions(FusionTable& table);
void appendStatementFusions(FusionTable& table);

#endif
