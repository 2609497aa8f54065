#ifndef BASICEXPRESSIONS_H
#define BASICEXPRESSIONS_H

#include "actionlanguage/runtime/linkedexpression.h"

// Nodes hand out what they hold while code is linked, to whom puts another node in their place.

/// A constant.
template <class T>
class LiteralExpression : public AbstractExpressionImpl<T>
{
public:
    explicit LiteralExpression(T value) : m_value(std::move(value)) {}

    T evaluate(AbstractExecutionInterface&) const override { return m_value; }

    const T& value() const { return m_value; }

private:
    T m_value;
};

/// Reads a variable.
template <class T>
class VariableExpression : public AbstractExpressionImpl<T>
{
public:
    explicit VariableExpression(std::shared_ptr<const T> storage) : m_storage(std::move(storage)) {}

    T evaluate(AbstractExecutionInterface&) const override { return *m_storage; }

    const std::shared_ptr<const T>& storage() const { return m_storage; }

private:
    std::shared_ptr<const T> m_storage;
};

/// One of the implicit conversions: to bool by comparing with zero, int to double exactly.
template <class From, class To>
class CastExpression : public AbstractExpressionImpl<To>
{
public:
    explicit CastExpression(ExpressionPointer<From> operand) : m_operand(std::move(operand)) {}

    To evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        const From value = m_operand->evaluate(executionInterface);
        if constexpr (std::is_same_v<To, bool>)
            return value != From{};
        else
            return static_cast<To>(value);
    }

    ExpressionPointer<From>& operand() { return m_operand; }

private:
    ExpressionPointer<From> m_operand;
};

/// Evaluates an operand and drops its value.
template <class T>
class DiscardExpression : public AbstractExpressionImpl<void>
{
public:
    explicit DiscardExpression(ExpressionPointer<T> operand) : m_operand(std::move(operand)) {}

    void evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        static_cast<void>(m_operand->evaluate(executionInterface));
    }

    ExpressionPointer<T>& operand() { return m_operand; }

private:
    ExpressionPointer<T> m_operand;
};

/// Evaluates the left operand, drops its value, and gives the right one.
template <class T>
class CommaOperatorExpression : public AbstractExpressionImpl<T>
{
public:
    CommaOperatorExpression(ExpressionPointer<void> left, ExpressionPointer<T> right)
        : m_left(std::move(left)), m_right(std::move(right))
    {}

    T evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        m_left->evaluate(executionInterface);
        return m_right->evaluate(executionInterface);
    }

private:
    ExpressionPointer<void> m_left;
    ExpressionPointer<T> m_right;
};

/// An expression of any type as one whose value nobody takes.
/// @throws std::runtime_error "invalid executable creation" for an empty one.
ExpressionPointer<void> discarded(LinkedExpression expression);

#endif
