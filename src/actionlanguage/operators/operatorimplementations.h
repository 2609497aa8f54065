#ifndef OPERATORIMPLEMENTATIONS_H
#define OPERATORIMPLEMENTATIONS_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedvariable.h"

#include <vector>

// What an operator means for given operand types, known when code is compiled. Each record makes the node
// that does the work when the code is linked. Records never change and are shared by all compilers and
// linkers.

class AbstractBinaryOperatorImplementation
{
public:
    AbstractBinaryOperatorImplementation(DataType leftType, DataType rightType)
        : m_leftType(leftType), m_rightType(rightType)
    {}
    virtual ~AbstractBinaryOperatorImplementation() = default;

    DataType leftType() const { return m_leftType; }
    DataType rightType() const { return m_rightType; }

    /// @throws std::runtime_error "invalid executable link" when an operand is of another type.
    virtual LinkedExpression createExpression(LinkedExpression left, LinkedExpression right) const = 0;
    virtual DataType resultType() const = 0;

private:
    DataType m_leftType;
    DataType m_rightType;
};

class AbstractAssignmentOperatorImpl
{
public:
    AbstractAssignmentOperatorImpl(DataType rightType, DataType leftType)
        : m_rightType(rightType), m_leftType(leftType)
    {}
    virtual ~AbstractAssignmentOperatorImpl() = default;

    DataType rightType() const { return m_rightType; }
    DataType leftType() const { return m_leftType; }

    /// @throws std::runtime_error "invalid assignment type" when the target is of another type, "invalid
    /// expression types" when the right side is.
    virtual LinkedExpression createExpression(const LinkedVariable& target, LinkedExpression right) const = 0;

private:
    DataType m_rightType;
    DataType m_leftType;
};

class BaseUnaryOperatorImpl
{
public:
    explicit BaseUnaryOperatorImpl(DataType operandType) : m_operandType(operandType) {}
    virtual ~BaseUnaryOperatorImpl() = default;

    DataType operandType() const { return m_operandType; }

private:
    DataType m_operandType;
};

class AbstractUnaryOperatorImpl : public BaseUnaryOperatorImpl
{
public:
    using BaseUnaryOperatorImpl::BaseUnaryOperatorImpl;

    /// @throws std::runtime_error "invalid types" when the operand is of another type.
    virtual LinkedExpression createExpression(LinkedExpression operand) const = 0;
};

class AbstractIncDecOperatorImpl : public BaseUnaryOperatorImpl
{
public:
    using BaseUnaryOperatorImpl::BaseUnaryOperatorImpl;

    /// @throws std::runtime_error "invalid types" when the variable is of another type.
    virtual LinkedExpression createExpression(const LinkedVariable& operand) const = 0;
};

template <class Interface>
using Implementations = std::vector<std::unique_ptr<const Interface>>;

using BinaryImplementations = Implementations<AbstractBinaryOperatorImplementation>;
using AssignmentImplementations = Implementations<AbstractAssignmentOperatorImpl>;
using UnaryImplementations = Implementations<AbstractUnaryOperatorImpl>;
using IncDecImplementations = Implementations<AbstractIncDecOperatorImpl>;

#endif
