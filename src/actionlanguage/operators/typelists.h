#ifndef TYPELISTS_H
#define TYPELISTS_H

#include <cstdint>
#include <string>

// The tables of operand types are lists of C++ types. The short names are those of the tables: b bool,
// c char, d double, i int, l int64_t, s string, u uint64_t.

namespace OperandTypes {

using b = bool;
using c = char;
using d = double;
using i = std::int32_t;
using l = std::int64_t;
using s = std::string;
using u = std::uint64_t;

/// (left, right)
template <class Left, class Right>
struct Pair
{};

template <class... Entries>
struct List
{};

template <class... Lists>
struct Joined;

template <class... First, class... Second>
struct Joined<List<First...>, List<Second...>>
{
    using Type = List<First..., Second...>;
};

} // namespace OperandTypes

#endif
