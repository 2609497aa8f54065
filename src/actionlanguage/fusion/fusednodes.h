#ifndef FUSEDNODES_H
#define FUSEDNODES_H

#include "actionlanguage/fusion/fusedstatements.h"

/// An expression that can go up into the statement that stores its value.
template <class T>
class AssignableExpression : public AbstractExpressionImpl<T>
{
public:
    /// "storage = this". Nothing is left here.
    virtual std::unique_ptr<AbstractStatementImpl> assignedTo(std::shared_ptr<T> storage) = 0;
};

/// A comparison that can go up into the statement that it decides.
class ConditionExpression : public AbstractExpressionImpl<bool>
{
public:
    /// The statement that this decides. Nothing is left here.
    virtual std::unique_ptr<AbstractStatementImpl> branch(BranchParts&& parts) = 0;

    /// The same for a loop, which takes the parts; or null, and all is as it was, when this does not go up
    /// into a loop.
    virtual std::unique_ptr<AbstractStatementImpl> loop(LoopParts& parts) = 0;
};

/// A code as a node.
template <class Code>
class FusedExpression final : public AbstractExpressionImpl<typename Code::Value>
{
public:
    explicit FusedExpression(Code code) : m_code(std::move(code)) {}

    typename Code::Value evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        return m_code.get(executionInterface);
    }

private:
    Code m_code;
};

template <class Code>
class FusedAssignable final : public AssignableExpression<typename Code::Value>
{
public:
    using Value = typename Code::Value;

    explicit FusedAssignable(Code code) : m_code(std::move(code)) {}

    Value evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        return m_code.get(executionInterface);
    }

    std::unique_ptr<AbstractStatementImpl> assignedTo(std::shared_ptr<Value> storage) override
    {
        return std::make_unique<AssignStatement<Arithmetic::Assign, Value, Code>>(std::move(storage),
                                                                                  std::move(m_code));
    }

private:
    Code m_code;
};

template <class Code>
class FusedCondition final : public ConditionExpression
{
public:
    explicit FusedCondition(Code code) : m_code(std::move(code)) {}

    bool evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        return m_code.get(executionInterface);
    }

    std::unique_ptr<AbstractStatementImpl> branch(BranchParts&& parts) override
    {
        return std::make_unique<BranchStatement<Code>>(std::move(m_code), std::move(parts));
    }

    std::unique_ptr<AbstractStatementImpl> loop([[maybe_unused]] LoopParts& parts) override
    {
        // Loops count in int: the other types are not worth the classes.
        if constexpr (std::is_same_v<typename Code::Operand, std::int32_t>)
            return std::make_unique<LoopStatement<Code>>(std::move(m_code), std::move(parts));
        else
            return nullptr;
    }

private:
    Code m_code;
};

#endif
