#ifndef STATEMENTS_H
#define STATEMENTS_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"

/// Does nothing.
class NullStatement : public AbstractStatementImpl
{
public:
    void execute(AbstractExecutionInterface& executionInterface) const override;
};

/// Evaluates an expression of any type and drops its value.
class ExpressionStatement : public AbstractStatementImpl
{
public:
    explicit ExpressionStatement(ExpressionPointer<void> expression);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    ExpressionPointer<void>& expression() { return m_expression; }

private:
    ExpressionPointer<void> m_expression;
};

/// Executes a list in order.
class CompoundStatement : public AbstractStatementImpl
{
public:
    explicit CompoundStatement(LinkedStatements statements);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    LinkedStatements& statements() { return m_statements; }

private:
    LinkedStatements m_statements;
};

class IfStatement : public AbstractStatementImpl
{
public:
    IfStatement(ExpressionPointer<bool> condition, LinkedStatement onTrue);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    ExpressionPointer<bool>& condition() { return m_condition; }
    LinkedStatement& onTrue() { return m_onTrue; }

private:
    ExpressionPointer<bool> m_condition;
    LinkedStatement m_onTrue;
};

class IfElseStatement : public AbstractStatementImpl
{
public:
    IfElseStatement(ExpressionPointer<bool> condition, LinkedStatement onTrue, LinkedStatement onFalse);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    ExpressionPointer<bool>& condition() { return m_condition; }
    LinkedStatement& onTrue() { return m_onTrue; }
    LinkedStatement& onFalse() { return m_onFalse; }

private:
    ExpressionPointer<bool> m_condition;
    LinkedStatement m_onTrue;
    LinkedStatement m_onFalse;
};

/// No loop has a limit of its own: one that does not end holds its thread.
class WhileStatement : public AbstractStatementImpl
{
public:
    WhileStatement(ExpressionPointer<bool> condition, LinkedStatement loop);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    ExpressionPointer<bool>& condition() { return m_condition; }
    LinkedStatement& loop() { return m_loop; }

private:
    ExpressionPointer<bool> m_condition;
    LinkedStatement m_loop;
};

class DoWhileStatement : public AbstractStatementImpl
{
public:
    DoWhileStatement(ExpressionPointer<bool> condition, LinkedStatement loop);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    ExpressionPointer<bool>& condition() { return m_condition; }
    LinkedStatement& loop() { return m_loop; }

private:
    ExpressionPointer<bool> m_condition;
    LinkedStatement m_loop;
};

class ForStatement : public AbstractStatementImpl
{
public:
    ForStatement(LinkedStatement init, ExpressionPointer<bool> condition, ExpressionPointer<void> iteration,
                 LinkedStatement loop);
    void execute(AbstractExecutionInterface& executionInterface) const override;

    LinkedStatement& init() { return m_init; }
    ExpressionPointer<bool>& condition() { return m_condition; }
    ExpressionPointer<void>& iteration() { return m_iteration; }
    LinkedStatement& loop() { return m_loop; }

private:
    LinkedStatement m_init;
    ExpressionPointer<bool> m_condition;
    ExpressionPointer<void> m_iteration;
    LinkedStatement m_loop;
};

#endif
