#ifndef ARITHMETIC_H
#define ARITHMETIC_H

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

// The arithmetic of the language on C++ types. Mixed operands take the usual arithmetic conversions: an int
// beside a uint64_t becomes unsigned. Signed overflow wraps and shift counts are masked, as the hardware
// has it, and are written so that they are defined in C++ too.

namespace Arithmetic {

template <class Left, class Right>
using Common = std::common_type_t<Left, Right>;

/// Applies `operation` to both operands in their common type, integers as unsigned ones.
template <class Left, class Right, class Operation>
constexpr Common<Left, Right> wrapping(Left left, Right right, Operation operation)
{
    using Type = Common<Left, Right>;
    if constexpr (std::integral<Type>) {
        using Unsigned = std::make_unsigned_t<Type>;
        return static_cast<Type>(operation(static_cast<Unsigned>(static_cast<Type>(left)),
                                           static_cast<Unsigned>(static_cast<Type>(right))));
    } else
        return operation(static_cast<Type>(left), static_cast<Type>(right));
}

/// A zero divisor, and the most negative value divided by -1, are faults of the processor, and nothing in
/// the language catches them: the sanitizers must not report them first.
template <std::integral Type>
__attribute__((no_sanitize("undefined"))) Type quotient(Type left, Type right)
{
    return left / right;
}

template <std::integral Type>
__attribute__((no_sanitize("undefined"))) Type remainder(Type left, Type right)
{
    return left % right;
}

struct Add
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a + b; });
    }
};

struct Subtract
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a - b; });
    }
};

struct Multiply
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a * b; });
    }
};

struct Divide
{
    auto operator()(auto left, auto right) const
    {
        using Type = Common<decltype(left), decltype(right)>;
        if constexpr (std::integral<Type>)
            return quotient(static_cast<Type>(left), static_cast<Type>(right));
        else
            return static_cast<Type>(left) / static_cast<Type>(right);
    }
};

struct Remainder
{
    auto operator()(auto left, auto right) const
    {
        using Type = Common<decltype(left), decltype(right)>;
        return remainder(static_cast<Type>(left), static_cast<Type>(right));
    }
};

/// The count modulo the width of what is shifted.
template <class Type>
constexpr unsigned shiftCount(auto count)
{
    return static_cast<unsigned>(count) & (std::numeric_limits<std::make_unsigned_t<Type>>::digits - 1);
}

struct ShiftLeft
{
    template <class Left>
    constexpr Left operator()(Left left, auto count) const
    {
        return static_cast<Left>(static_cast<std::make_unsigned_t<Left>>(left) << shiftCount<Left>(count));
    }
};

struct ShiftRight
{
    template <class Left>
    constexpr Left operator()(Left left, auto count) const
    {
        return static_cast<Left>(left >> shiftCount<Left>(count));
    }
};

struct BitAnd
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a & b; });
    }
};

struct BitXor
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a ^ b; });
    }
};

struct BitOr
{
    constexpr auto operator()(auto left, auto right) const
    {
        return wrapping(left, right, [](auto a, auto b) { return a | b; });
    }
};

struct LogicalAnd
{
    constexpr bool operator()(bool left, bool right) const { return left && right; }
};

struct LogicalOr
{
    constexpr bool operator()(bool left, bool right) const { return left || right; }
};

/// Compares in the common type. A char is signed in the language, whatever it is to the compiler.
template <class Left, class Right, class Comparison>
constexpr bool compared(Left left, Right right, Comparison comparison)
{
    if constexpr (std::is_same_v<Left, char>)
        return comparison(static_cast<signed char>(left), static_cast<signed char>(right));
    else
        return comparison(static_cast<Common<Left, Right>>(left), static_cast<Common<Left, Right>>(right));
}

struct Less
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a < b; });
    }
};

struct LessEqual
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a <= b; });
    }
};

struct Greater
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a > b; });
    }
};

struct GreaterEqual
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a >= b; });
    }
};

struct Equal
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a == b; });
    }
};

struct NotEqual
{
    constexpr bool operator()(auto left, auto right) const
    {
        return compared(left, right, [](auto a, auto b) { return a != b; });
    }
};

/// "=": the value as the variable's type; as a bool it is whether it differs from zero.
struct Assign
{
    template <class Left, class Right>
    Left operator()(Left& storage, const Right& right) const
    {
        if constexpr (std::is_same_v<Left, bool> && !std::is_same_v<Right, bool>)
            storage = right != Right{};
        else if constexpr (std::is_same_v<Left, Right>)
            storage = right;
        else
            storage = static_cast<Left>(right);
        return storage;
    }
};

/// "+=" and its like: the binary operator, and its result as the variable's type.
template <class Operator>
struct AssignWith
{
    template <class Left, class Right>
    Left operator()(Left& storage, const Right& right) const
    {
        return storage = static_cast<Left>(Operator()(storage, right));
    }
};

struct Identity
{
    constexpr auto operator()(auto operand) const { return operand; }
};

struct Negate
{
    template <class Type>
    constexpr Type operator()(Type operand) const
    {
        if constexpr (std::integral<Type>)
            return Subtract()(Type{0}, operand);
        else
            return -operand;
    }
};

struct LogicalNot
{
    constexpr bool operator()(bool operand) const { return !operand; }
};

struct Complement
{
    template <class Type>
    constexpr Type operator()(Type operand) const
    {
        return ~operand;
    }
};

template <class Operator>
struct PrefixStep
{
    template <class Type>
    Type operator()(Type& storage) const
    {
        return storage = Operator()(storage, Type{1});
    }
};

template <class Operator>
struct SuffixStep
{
    template <class Type>
    Type operator()(Type& storage) const
    {
        const Type old = storage;
        storage = Operator()(old, Type{1});
        return old;
    }
};

} // namespace Arithmetic

#endif
