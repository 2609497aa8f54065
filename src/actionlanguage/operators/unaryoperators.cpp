#include "actionlanguage/operators/unaryoperators.h"

#include "actionlanguage/operators/arithmetic.h"
#include "actionlanguage/operators/typelists.h"
#include "actionlanguage/runtime/functionalexpressions.h"

#include <array>

namespace {

using namespace Arithmetic;
using namespace OperandTypes;

constexpr auto invalidTypes = "invalid types";

template <class Operand, class Lambda>
class FuncUnaryOperatorImpl : public AbstractUnaryOperatorImpl
{
public:
    FuncUnaryOperatorImpl() : AbstractUnaryOperatorImpl(dataTypeOf<Operand>) {}

    LinkedExpression createExpression(LinkedExpression operand) const override
    {
        return ExpressionPointer<Operand>(std::make_unique<UnaryOperatorExpression<Operand, Lambda>>(
            operand.take<Operand>(invalidTypes), Lambda()));
    }
};

template <class Operand, class Lambda>
class FuncIncDecOperatorImpl : public AbstractIncDecOperatorImpl
{
public:
    FuncIncDecOperatorImpl() : AbstractIncDecOperatorImpl(dataTypeOf<Operand>) {}

    LinkedExpression createExpression(const LinkedVariable& operand) const override
    {
        auto storage = operand.storage<Operand>();
        if (!storage)
            throw std::runtime_error(invalidTypes);
        return ExpressionPointer<Operand>(
            std::make_unique<IncDecExpression<Operand, Lambda>>(std::move(storage), Lambda()));
    }
};

template <class Lambda, class... Operands>
UnaryImplementations unary()
{
    UnaryImplementations implementations;
    (implementations.push_back(std::make_unique<FuncUnaryOperatorImpl<Operands, Lambda>>()), ...);
    return implementations;
}

template <class Lambda>
IncDecImplementations incDec()
{
    IncDecImplementations implementations;
    implementations.push_back(std::make_unique<FuncIncDecOperatorImpl<i, Lambda>>());
    implementations.push_back(std::make_unique<FuncIncDecOperatorImpl<l, Lambda>>());
    implementations.push_back(std::make_unique<FuncIncDecOperatorImpl<u, Lambda>>());
    return implementations;
}

constexpr auto unaryTable = std::to_array<UnaryOperator>({
    {"+", unary<Identity, i, d, l, u>},
    {"-", unary<Negate, i, d, l>},
    {"!", unary<LogicalNot, b>},
    {"~", unary<Complement, i>},
});

constexpr auto incDecTable = std::to_array<IncDecOperator>({
    {"++", incDec<PrefixStep<Add>>, incDec<SuffixStep<Add>>},
    {"--", incDec<PrefixStep<Subtract>>, incDec<SuffixStep<Subtract>>},
});

} // namespace

std::span<const UnaryOperator> unaryOperators()
{
    return unaryTable;
}

std::span<const IncDecOperator> incDecOperators()
{
    return incDecTable;
}
