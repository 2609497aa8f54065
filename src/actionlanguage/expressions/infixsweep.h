#ifndef INFIXSWEEP_H
#define INFIXSWEEP_H

#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/rules/rulesweeps.h"

#include <algorithm>

/// What an infix operator makes of its operands, before they are put into it.
struct InfixForm
{
    JsonObject head;
    DataType type = DataType::unknown;
};

/// The sweep of an operator that stands between two operands: left to right, at each place that has an item
/// on either side. `makeForm(left, right, operator's span)` chooses the form and its type; "lhs" and "rhs"
/// are added to it.
template <class MakeForm>
void sweepInfix(ItemList& items, std::string_view text, AbstractCompiler& compiler, MakeForm makeForm)
{
    LeftToRightSweep sweep(items);
    while (!sweep.atEnd()) {
        if (!sweep.item().isOperator(text) || !sweep.hasBefore() || sweep.behindCount() == 0) {
            sweep.pass();
            continue;
        }
        const ExpressionItem& operatorItem = sweep.item();
        ExpressionItem& leftItem = sweep.before();
        ExpressionItem& rightItem = sweep.behind().front();
        // The right operand comes first: its errors win.
        auto right =
            compileOperand(rightItem, operatorItem, LanguageError::expectedExpressionAfter, compiler);
        auto left = compileOperand(leftItem, operatorItem, LanguageError::expectedExpressionBefore, compiler);

        InfixForm form = makeForm(left.type(), right.type(), operatorItem.span());
        const unsigned depth = std::max(left.depth(), right.depth()) + 1;
        form.head.insert("lhs", CompiledForm::typed(std::move(left)));
        form.head.insert("rhs", CompiledForm::typed(std::move(right)));
        sweep.reduceWithBefore(2,
                               reducedItem(std::move(form.head), form.type, depth,
                                           joined(leftItem.span(), rightItem.span()), operatorItem.span()));
    }
    sweep.finish();
}

#endif
