#ifndef DIVISOR_H
#define DIVISOR_H

#include "actionlanguage/operators/arithmetic.h"

#include <bit>
#include <cstdint>
#include <limits>

/// An int that is divided by again and again: a multiplication takes the place of the division.
///
/// With d the divisor without its sign, k = 31 + ceil(log2 d) and m = ceil(2^k / d), the quotient of any n up
/// to 2^31 is floor(n * m / 2^k): m * d exceeds 2^k by e < d, so that n * e < 2^31 * d <= 2^k, and the excess
/// never reaches the next whole number. m is at most 2^32, so n * m fits.
class Divisor
{
public:
    /// 0 faults, and 1 and -1 would overflow: those divide as ever.
    static constexpr bool fits(std::int32_t value)
    {
        return value != 0 && value != 1 && value != -1 && value != std::numeric_limits<std::int32_t>::min();
    }

    /// @param value one that fits
    explicit constexpr Divisor(std::int32_t value)
        : m_value(value), m_shift(31 + static_cast<int>(std::bit_width(magnitude(value) - 1))),
          m_factor(((std::uint64_t{1} << m_shift) + magnitude(value) - 1) / magnitude(value))
    {}

    /// What C++ has for `left` / value, rounded towards zero.
    constexpr std::int32_t quotientOf(std::int32_t left) const
    {
        const auto quotient = static_cast<std::uint32_t>(magnitude(left) * m_factor >> m_shift);
        const bool isNegative = (left < 0) != (m_value < 0);
        return static_cast<std::int32_t>(isNegative ? 0 - quotient : quotient);
    }

    /// What C++ has for `left` % value: the sign is that of `left`.
    constexpr std::int32_t remainderOf(std::int32_t left) const
    {
        return Arithmetic::Subtract()(left, Arithmetic::Multiply()(quotientOf(left), m_value));
    }

private:
    static constexpr std::uint64_t magnitude(std::int32_t value)
    {
        return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    }

    std::int32_t m_value;
    int m_shift;
    std::uint64_t m_factor;
};

struct DivideByDivisor
{
    constexpr std::int32_t operator()(std::int32_t left, Divisor right) const
    {
        return right.quotientOf(left);
    }
};

struct RemainderByDivisor
{
    constexpr std::int32_t operator()(std::int32_t left, Divisor right) const
    {
        return right.remainderOf(left);
    }
};

#endif
