#ifndef FUNCTIONALEXPRESSIONS_H
#define FUNCTIONALEXPRESSIONS_H

#include "actionlanguage/runtime/linkedexpression.h"

#include <tuple>

/// A node whose value one lambda makes of its operands: each operator and each type combination is a class
/// of its own, so that nothing is decided while code runs.
template <class Result, class Lambda>
class BasicFunctionalExpression : public AbstractExpressionImpl<Result>
{
public:
    explicit BasicFunctionalExpression(Lambda lambda) : m_lambda(std::move(lambda)) {}

protected:
    [[no_unique_address]] Lambda m_lambda;
};

/// The right operand is evaluated first, then the left, and always both: "&&" and "||" do not stop short.
template <class Result, class Left, class Right, class Lambda>
class BinaryOperatorExpression : public BasicFunctionalExpression<Result, Lambda>
{
public:
    BinaryOperatorExpression(ExpressionPointer<Left> left, ExpressionPointer<Right> right, Lambda lambda)
        : BasicFunctionalExpression<Result, Lambda>(std::move(lambda)), m_left(std::move(left)),
          m_right(std::move(right))
    {}

    Result evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        const Right right = m_right->evaluate(executionInterface);
        const Left left = m_left->evaluate(executionInterface);
        return this->m_lambda(left, right);
    }

    ExpressionPointer<Left>& left() { return m_left; }
    ExpressionPointer<Right>& right() { return m_right; }

private:
    ExpressionPointer<Left> m_left;
    ExpressionPointer<Right> m_right;
};

/// Evaluates the right side, changes the variable by it, and gives the variable's new value.
template <class Left, class Right, class Lambda>
class AssignmentOperatorExpression : public BasicFunctionalExpression<Left, Lambda>
{
public:
    AssignmentOperatorExpression(std::shared_ptr<Left> storage, ExpressionPointer<Right> right, Lambda lambda)
        : BasicFunctionalExpression<Left, Lambda>(std::move(lambda)), m_storage(std::move(storage)),
          m_right(std::move(right))
    {}

    Left evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        const Right right = m_right->evaluate(executionInterface);
        return this->m_lambda(*m_storage, right);
    }

    const std::shared_ptr<Left>& storage() const { return m_storage; }
    ExpressionPointer<Right>& right() { return m_right; }

private:
    std::shared_ptr<Left> m_storage;
    ExpressionPointer<Right> m_right;
};

template <class Operand, class Lambda>
class UnaryOperatorExpression : public BasicFunctionalExpression<Operand, Lambda>
{
public:
    UnaryOperatorExpression(ExpressionPointer<Operand> operand, Lambda lambda)
        : BasicFunctionalExpression<Operand, Lambda>(std::move(lambda)), m_operand(std::move(operand))
    {}

    Operand evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        return this->m_lambda(m_operand->evaluate(executionInterface));
    }

    ExpressionPointer<Operand>& operand() { return m_operand; }

private:
    ExpressionPointer<Operand> m_operand;
};

/// Prefix and suffix "++" and "--": the lambda changes the variable and says which value is the result.
template <class Operand, class Lambda>
class IncDecExpression : public BasicFunctionalExpression<Operand, Lambda>
{
public:
    IncDecExpression(std::shared_ptr<Operand> storage, Lambda lambda)
        : BasicFunctionalExpression<Operand, Lambda>(std::move(lambda)), m_storage(std::move(storage))
    {}

    Operand evaluate(AbstractExecutionInterface&) const override { return this->m_lambda(*m_storage); }

    const std::shared_ptr<Operand>& storage() const { return m_storage; }

private:
    std::shared_ptr<Operand> m_storage;
};

/// Evaluates the arguments from the last to the first, then calls the lambda with the execution interface
/// and their values. `Interface` is what the function needs the execution interface to be.
template <class Result, class Lambda, class Interface, class... Arguments>
class FunctionCallExpression : public BasicFunctionalExpression<Result, Lambda>
{
public:
    FunctionCallExpression(std::tuple<ExpressionPointer<Arguments>...> arguments, Lambda lambda)
        : BasicFunctionalExpression<Result, Lambda>(std::move(lambda)), m_arguments(std::move(arguments))
    {}

    Result evaluate(AbstractExecutionInterface& executionInterface) const override
    {
        return evaluateRest<sizeof...(Arguments)>(executionInterface);
    }

private:
    /// Evaluates the first `count` arguments; `values` are those behind them, which stay where they are.
    template <std::size_t count, class... Values>
    Result evaluateRest(AbstractExecutionInterface& executionInterface, const Values&... values) const
    {
        if constexpr (count == 0)
            return this->m_lambda(static_cast<Interface&>(executionInterface), values...);
        else
            return evaluateRest<count - 1>(executionInterface,
                                           std::get<count - 1>(m_arguments)->evaluate(executionInterface),
                                           values...);
    }

    std::tuple<ExpressionPointer<Arguments>...> m_arguments;
};

#endif
