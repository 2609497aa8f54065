#include "actionlanguage/expressions/assignmentoperatorrule.h"

#include "actionlanguage/rules/rulesweeps.h"
#include "actionlanguage/tokens/compilationexception.h"

namespace {
constexpr std::string_view ruleName = "assign";
}

AssignmentOperatorRule::AssignmentOperatorRule(std::string_view text,
                                               AssignmentImplementations implementations)
    : AbstractOperatorRule(text), m_implementations(std::move(implementations))
{}

bool AssignmentOperatorRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isOperator(form, ruleName, text());
}

void AssignmentOperatorRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    if (items.size() < 3 || !standsIn(items))
        return;
    RightToLeftSweep sweep(items);
    while (!sweep.atEnd()) {
        const ExpressionItem& operatorItem = sweep.item();
        if (!operatorItem.isOperator(text()) || !sweep.hasBefore() || !sweep.hasBehind()) {
            sweep.pass();
            continue;
        }
        const ExpressionItem& leftItem = sweep.before();
        ExpressionItem& rightItem = sweep.behind();
        if (!leftItem.isIdentifier())
            throw CompilationException(LanguageError::assignmentNeedsIdentifier, operatorItem.span());
        const VariableReference variable = compiler.lookUpVariable(*leftItem.token(), false, true);
        compiler.markInitialised(variable.id);
        auto right =
            compileOperand(rightItem, operatorItem, LanguageError::expectedExpressionAfter, compiler);

        if (!findImplementation(m_implementations, variable.type, right.type()))
            throw CompilationException(LanguageError::noAssignmentOperator, operatorItem.span());

        const unsigned depth = right.depth() + 1;
        JsonObject form = operatorForm(ruleName, 6);
        form.insert("ltype", CompiledForm::spelling(variable.type));
        form.insert("rtype", CompiledForm::spelling(right.type()));
        form.insert("lhs", CompiledForm::variable(variable.type, variable.id));
        form.insert("rhs", std::move(right).form());
        sweep.reduceWithBehind(2,
                               reducedItem(std::move(form), variable.type, depth,
                                           joined(leftItem.span(), rightItem.span()), operatorItem.span()));
    }
    sweep.finish();
}

LinkedExpression AssignmentOperatorRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    const DataType leftType = CompiledForm::typeAt(form, "ltype");
    const DataType rightType = CompiledForm::typeAt(form, "rtype");
    const auto& implementation =
        linkedImplementation(findImplementation(m_implementations, leftType, rightType));
    const JsonValue& left = form.member("lhs");
    const LinkedVariable& target = linker.findVariable(left.member("id").asString());
    LinkedExpression assignment =
        implementation.createExpression(target, linker.linkExpression(form.member("rhs")));
    checkVariableType(left, target);
    return assignment;
}
