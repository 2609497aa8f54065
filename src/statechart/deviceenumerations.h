#ifndef DEVICEENUMERATIONS_H
#define DEVICEENUMERATIONS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// The numbers that stand in a compiled device, and the words of the definition that each comes from. To add
// a word, add its name and number to the enumeration and its row to the table under it.

/// What the numbers of a bus are.
enum class BusDataType : std::int32_t
{
    int64 = 0,
    uint64 = 1,
};

/// How the lines of a bus stand for a number.
enum class BusEncoding : std::int32_t
{
    offsetBinary = 1,
    twosComplement = 2,
    unsignedBinary = 3, ///< of any "uint64_t" bus; no word of a definition asks for it
};

/// What the text of a parameter is a number of.
enum class ParameterType : std::int32_t
{
    int64 = 0,
    uint64 = 1,
    real = 2,
};

/// The level of an output pin at the start. The order is that of the editor's choices, High first; it is not
/// that of the levels.
enum class PinInitialValue : std::int32_t
{
    high = 0,
    low = 1,
};

/// A row of the tables below.
template <class Enumeration>
struct DeviceWord
{
    std::string_view word;
    Enumeration value;
};

inline constexpr std::array<DeviceWord<BusDataType>, 2> busDataTypeWords{{
    {"int64_t", BusDataType::int64},
    {"uint64_t", BusDataType::uint64},
}};

inline constexpr std::array<DeviceWord<BusEncoding>, 2> busEncodingWords{{
    {"OffsetBinary", BusEncoding::offsetBinary},
    {"TwosComplement", BusEncoding::twosComplement},
}};

inline constexpr std::array<DeviceWord<ParameterType>, 3> parameterTypeWords{{
    {"int64_t", ParameterType::int64},
    {"uint64_t", ParameterType::uint64},
    {"double", ParameterType::real},
}};

inline constexpr std::array<DeviceWord<PinInitialValue>, 2> pinInitialValueWords{{
    {"1", PinInitialValue::high},
    {"0", PinInitialValue::low},
}};

/// The value that a word stands for in one of the tables.
template <class Enumeration, std::size_t size>
constexpr std::optional<Enumeration> valueOfWord(const std::array<DeviceWord<Enumeration>, size>& words,
                                                 std::string_view word)
{
    const auto row =
        std::find_if(words.begin(), words.end(), [&](const auto& entry) { return entry.word == word; });
    if (row == words.end())
        return std::nullopt;
    return row->value;
}

#endif
