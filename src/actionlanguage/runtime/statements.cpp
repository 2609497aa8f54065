#include "actionlanguage/runtime/statements.h"

void NullStatement::execute(AbstractExecutionInterface&) const {}

ExpressionStatement::ExpressionStatement(ExpressionPointer<void> expression)
    : m_expression(std::move(expression))
{}

void ExpressionStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    m_expression->evaluate(executionInterface);
}

CompoundStatement::CompoundStatement(LinkedStatements statements) : m_statements(std::move(statements)) {}

void CompoundStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    m_statements.execute(executionInterface);
}

IfStatement::IfStatement(ExpressionPointer<bool> condition, LinkedStatement onTrue)
    : m_condition(std::move(condition)), m_onTrue(std::move(onTrue))
{}

void IfStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    if (m_condition->evaluate(executionInterface))
        m_onTrue.execute(executionInterface);
}

IfElseStatement::IfElseStatement(ExpressionPointer<bool> condition, LinkedStatement onTrue,
                                 LinkedStatement onFalse)
    : m_condition(std::move(condition)), m_onTrue(std::move(onTrue)), m_onFalse(std::move(onFalse))
{}

void IfElseStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    const LinkedStatement& chosen = m_condition->evaluate(executionInterface) ? m_onTrue : m_onFalse;
    chosen.execute(executionInterface);
}

WhileStatement::WhileStatement(ExpressionPointer<bool> condition, LinkedStatement loop)
    : m_condition(std::move(condition)), m_loop(std::move(loop))
{}

void WhileStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    while (m_condition->evaluate(executionInterface))
        m_loop.execute(executionInterface);
}

DoWhileStatement::DoWhileStatement(ExpressionPointer<bool> condition, LinkedStatement loop)
    : m_condition(std::move(condition)), m_loop(std::move(loop))
{}

void DoWhileStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    do
        m_loop.execute(executionInterface);
    while (m_condition->evaluate(executionInterface));
}

ForStatement::ForStatement(LinkedStatement init, ExpressionPointer<bool> condition,
                           ExpressionPointer<void> iteration, LinkedStatement loop)
    : m_init(std::move(init)), m_condition(std::move(condition)), m_iteration(std::move(iteration)),
      m_loop(std::move(loop))
{}

void ForStatement::execute(AbstractExecutionInterface& executionInterface) const
{
    m_init.execute(executionInterface);
    while (m_condition->evaluate(executionInterface)) {
        m_loop.execute(executionInterface);
        m_iteration->evaluate(executionInterface);
    }
}
