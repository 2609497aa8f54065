#ifndef FUSEDSTATEMENTS_H
#define FUSEDSTATEMENTS_H

#include "actionlanguage/fusion/codes.h"
#include "actionlanguage/operators/arithmetic.h"
#include "actionlanguage/runtime/linkedstatement.h"

/// Stores what a code gives, by "=" or one of its like. The code comes first, then the variable is read.
template <class Operator, class T, class Code>
class AssignStatement final : public AbstractStatementImpl
{
public:
    AssignStatement(std::shared_ptr<T> storage, Code code)
        : m_storage(std::move(storage)), m_code(std::move(code))
    {}

    void execute(AbstractExecutionInterface& executionInterface) const override
    {
        const auto right = m_code.get(executionInterface);
        Operator()(*m_storage, right);
    }

private:
    StorageShare<T> m_storage;
    Code m_code;
};

/// "++" or "--" of a variable, of which nobody takes the value.
template <class T>
class StepStatement final : public AbstractStatementImpl
{
public:
    /// @param step 1, or -1 in T's arithmetic
    StepStatement(std::shared_ptr<T> storage, T step) : m_storage(std::move(storage)), m_step(step) {}

    void execute(AbstractExecutionInterface&) const override
    {
        *m_storage = Arithmetic::Add()(*m_storage, m_step);
    }

    const std::shared_ptr<T>& storage() const { return m_storage; }
    T step() const { return m_step; }

private:
    std::shared_ptr<T> m_storage;
    T m_step;
};

struct BranchParts
{
    std::unique_ptr<AbstractStatementImpl> onTrue;
    std::unique_ptr<AbstractStatementImpl> onFalse; ///< may be null
};

class AbstractBranchStatement : public AbstractStatementImpl
{
public:
    explicit AbstractBranchStatement(BranchParts&& parts);
    ~AbstractBranchStatement() override;

protected:
    BranchParts m_parts;
};

/// "if", with and without "else".
template <class Condition>
class BranchStatement final : public AbstractBranchStatement
{
public:
    BranchStatement(Condition condition, BranchParts&& parts)
        : AbstractBranchStatement(std::move(parts)), m_condition(std::move(condition))
    {}

    void execute(AbstractExecutionInterface& executionInterface) const override
    {
        if (m_condition.get(executionInterface))
            m_parts.onTrue->execute(executionInterface);
        else if (m_parts.onFalse)
            m_parts.onFalse->execute(executionInterface);
    }

private:
    Condition m_condition;
};

/// What a loop does between its body and its condition. The commonest, a step of an int, needs no call.
class LoopStep
{
public:
    LoopStep() = default;
    explicit LoopStep(std::unique_ptr<AbstractStatementImpl> statement);

    void execute(AbstractExecutionInterface& executionInterface) const
    {
        if (m_counter)
            *m_counter = Arithmetic::Add()(*m_counter, m_step);
        else if (m_statement)
            m_statement->execute(executionInterface);
    }

private:
    std::shared_ptr<std::int32_t> m_counter;
    std::int32_t m_step = 0;
    std::unique_ptr<AbstractStatementImpl> m_statement;
};

struct LoopParts
{
    std::unique_ptr<AbstractStatementImpl> init; ///< may be null
    LinkedStatements body;
    LoopStep step;
    bool asksFirst = true; ///< a "do" does not
};

class AbstractLoopStatement : public AbstractStatementImpl
{
public:
    explicit AbstractLoopStatement(LoopParts&& parts);
    ~AbstractLoopStatement() override;

protected:
    LoopParts m_parts;
};

/// "while", "do" and "for".
template <class Condition>
class LoopStatement final : public AbstractLoopStatement
{
public:
    LoopStatement(Condition condition, LoopParts&& parts)
        : AbstractLoopStatement(std::move(parts)), m_condition(std::move(condition))
    {}

    void execute(AbstractExecutionInterface& executionInterface) const override
    {
        if (m_parts.init)
            m_parts.init->execute(executionInterface);
        for (bool asks = m_parts.asksFirst; !asks || m_condition.get(executionInterface); asks = true) {
            m_parts.body.execute(executionInterface);
            m_parts.step.execute(executionInterface);
        }
    }

private:
    Condition m_condition;
};

#endif
