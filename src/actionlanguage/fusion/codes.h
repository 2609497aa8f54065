#ifndef CODES_H
#define CODES_H

#include "actionlanguage/fusion/divisor.h"
#include "actionlanguage/runtime/basicexpressions.h"

#include <cstdint>

// A code is a small value with `Value get(AbstractExecutionInterface&) const`: what a fused node does without
// a call of its own. Codes nest, so that one node does the work of several; whatever a code cannot know, it
// leaves to a node behind an ExpressionCode.

class AbstractExecutionInterface;

/// A share in a variable's storage. Hundreds of classes of nodes have one: how it ends is no business of
/// each.
template <class T>
class StorageShare
{
public:
    explicit StorageShare(std::shared_ptr<T> storage) : m_storage(std::move(storage)) {}
    StorageShare(StorageShare&&) noexcept = default;
    ~StorageShare();

    T& operator*() const { return *m_storage; }

private:
    std::shared_ptr<T> m_storage;
};

template <class T>
class VariableCode
{
public:
    using Value = T;

    explicit VariableCode(std::shared_ptr<const T> storage) : m_storage(std::move(storage)) {}

    T get(AbstractExecutionInterface&) const { return *m_storage; }

private:
    StorageShare<const T> m_storage;
};

template <class T>
class LiteralCode
{
public:
    using Value = T;

    explicit LiteralCode(T value) : m_value(value) {}

    T get(AbstractExecutionInterface&) const { return m_value; }

    const T& value() const { return m_value; }

private:
    T m_value;
};

template <class T>
class ExpressionCode
{
public:
    using Value = T;

    explicit ExpressionCode(ExpressionPointer<T> node) : m_node(std::move(node)) {}

    T get(AbstractExecutionInterface& executionInterface) const
    {
        return m_node->evaluate(executionInterface);
    }

private:
    ExpressionPointer<T> m_node;
};

template <class Operator, class OperandCode>
class UnaryCode
{
public:
    using Operand = typename OperandCode::Value;
    using Value = std::invoke_result_t<Operator, Operand>;

    explicit UnaryCode(OperandCode operand) : m_operand(std::move(operand)) {}

    Value get(AbstractExecutionInterface& executionInterface) const
    {
        return Operator()(m_operand.get(executionInterface));
    }

private:
    OperandCode m_operand;
};

/// The right operand comes first, then the left, and always both: a right one that changes the variable on
/// the left is seen there, and the other way round it is not.
template <class Operator, class Left, class Right>
class BinaryCode
{
public:
    using Operand = typename Left::Value;
    using Value = std::invoke_result_t<Operator, typename Left::Value, typename Right::Value>;

    BinaryCode(Left left, Right right) : m_left(std::move(left)), m_right(std::move(right)) {}

    Value get(AbstractExecutionInterface& executionInterface) const
    {
        const auto right = m_right.get(executionInterface);
        const auto left = m_left.get(executionInterface);
        return Operator()(left, right);
    }

private:
    Left m_left;
    Right m_right;
};

/// How an operand is reached.
enum class OperandKind
{
    variable,
    literal,
    computed,
};

template <class Code>
inline constexpr OperandKind operandKind = OperandKind::computed;
template <class T>
inline constexpr OperandKind operandKind<VariableCode<T>> = OperandKind::variable;
template <class T>
inline constexpr OperandKind operandKind<LiteralCode<T>> = OperandKind::literal;

/// The kinds of a left and a right operand.
template <OperandKind left, OperandKind right>
struct KindPair
{};

#endif
