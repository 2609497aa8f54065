#ifndef FUNCTIONOPERATORS_H
#define FUNCTIONOPERATORS_H

#include "actionlanguage/operators/operatorimplementations.h"
#include "actionlanguage/runtime/functionalexpressions.h"

/// One overload of a function that an action can call.
class AbstractFunctionOperatorImpl
{
public:
    explicit AbstractFunctionOperatorImpl(std::vector<DataType> argumentTypes)
        : m_argumentTypes(std::move(argumentTypes))
    {}
    virtual ~AbstractFunctionOperatorImpl() = default;

    const std::vector<DataType>& argumentTypes() const { return m_argumentTypes; }

    virtual DataType returnType() const = 0;

    /// @throws std::runtime_error "invalid number of arguments to function", "invalid executable link" when
    /// an argument is of another type.
    virtual LinkedExpression createExpression(std::vector<LinkedExpression> arguments) const = 0;

private:
    std::vector<DataType> m_argumentTypes;
};

using FunctionOverload = std::unique_ptr<const AbstractFunctionOperatorImpl>;
using FunctionOverloads = std::vector<FunctionOverload>;

/// What the function does is `Lambda`, called with what the execution interface is to it and the arguments.
template <class Interface, class Result, class Lambda, class... Arguments>
class FuncFunctionOperatorImpl : public AbstractFunctionOperatorImpl
{
public:
    explicit FuncFunctionOperatorImpl(Lambda lambda)
        : AbstractFunctionOperatorImpl({dataTypeOf<Arguments>...}), m_lambda(std::move(lambda))
    {}

    DataType returnType() const override { return dataTypeOf<Result>; }

    LinkedExpression createExpression(std::vector<LinkedExpression> arguments) const override
    {
        if (arguments.size() != sizeof...(Arguments))
            throw std::runtime_error("invalid number of arguments to function");
        return create(arguments, std::index_sequence_for<Arguments...>());
    }

private:
    template <std::size_t... index>
    LinkedExpression create([[maybe_unused]] std::vector<LinkedExpression>& arguments,
                            std::index_sequence<index...>) const
    {
        std::tuple<ExpressionPointer<Arguments>...> nodes{
            arguments[index].template take<Arguments>("invalid executable link")...};
        return ExpressionPointer<Result>(
            std::make_unique<FunctionCallExpression<Result, Lambda, Interface, Arguments...>>(
                std::move(nodes), m_lambda));
    }

    Lambda m_lambda;
};

namespace FunctionOverloadDetail {

template <class Lambda, class Interface, class Result, class... Arguments>
FunctionOverload make(Lambda lambda, Result (Lambda::*)(Interface&, Arguments...) const)
{
    return std::make_unique<FuncFunctionOperatorImpl<Interface, Result, Lambda, std::decay_t<Arguments>...>>(
        std::move(lambda));
}

} // namespace FunctionOverloadDetail

/// The overload that a lambda stands for; its types are those of the lambda.
///
///     functionOverload([](AbstractExecutionInterface&, double x) { return std::sin(x); })
template <class Lambda>
FunctionOverload functionOverload(Lambda lambda)
{
    return FunctionOverloadDetail::make(std::move(lambda), &Lambda::operator());
}

/// Several of them, in order.
template <class... Lambdas>
FunctionOverloads functionOverloads(Lambdas... lambdas)
{
    FunctionOverloads overloads;
    overloads.reserve(sizeof...(Lambdas));
    (overloads.push_back(functionOverload(std::move(lambdas))), ...);
    return overloads;
}

#endif
