#ifndef DATATYPE_H
#define DATATYPE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The value types of the language. The spelling of each stands in compiled forms and in messages.
enum class DataType : std::uint32_t
{
    unknown = 0, ///< no value; the type of nothing yet, never of a finished expression
    boolean = 1,
    character = 2,
    real = 3,    ///< IEEE 754, 64 bits
    integer = 4, ///< signed, 32 bits
    integer64 = 5,
    string = 6, ///< bytes, owned by value
    unsigned64 = 7,
    none = 8, ///< "void": no value
};

/// "bool", "char", "double", "int", "int64_t", "string", "uint64_t" or "void"; "unknown" for anything else.
std::string_view typeName(DataType type);

/// The inverse over the eight real types.
std::optional<DataType> typeFromName(std::string_view name);

/// The language's tag of a C++ type that stands for one of its types.
template <class T>
inline constexpr DataType dataTypeOf = DataType::unknown;
template <>
inline constexpr DataType dataTypeOf<bool> = DataType::boolean;
template <>
inline constexpr DataType dataTypeOf<char> = DataType::character;
template <>
inline constexpr DataType dataTypeOf<double> = DataType::real;
template <>
inline constexpr DataType dataTypeOf<std::int32_t> = DataType::integer;
template <>
inline constexpr DataType dataTypeOf<std::int64_t> = DataType::integer64;
template <>
inline constexpr DataType dataTypeOf<std::string> = DataType::string;
template <>
inline constexpr DataType dataTypeOf<std::uint64_t> = DataType::unsigned64;
template <>
inline constexpr DataType dataTypeOf<void> = DataType::none;

#endif
