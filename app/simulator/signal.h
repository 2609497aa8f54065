#ifndef SIGNAL_H
#define SIGNAL_H

#include "statechart/deviceenumerations.h"
#include "statechart/devicevalues.h"

#include <cstdint>
#include <string>

/// A pin or a bus of a running device: its lines, and what their levels mean. A pin has one line.
struct Signal
{
    enum class Kind : std::uint8_t
    {
        pin,
        bus,
    };

    std::string name;
    Kind kind = Kind::pin;
    bool isInput = true;
    std::uint32_t width = 1; ///< in lines, up to 64
    BusDataType dataType = BusDataType::uint64;
    BusEncoding encoding = BusEncoding::unsignedBinary;
    std::uint64_t lines = 0; ///< line 0 is the lowest bit

    /// The largest width: values have 64 bits.
    static constexpr std::uint32_t maximumWidth = 64;

    bool isBus() const { return kind == Kind::bus; }
    bool isHigh(std::uint32_t line) const { return (lines >> line & 1U) != 0; }

    /// All lines high.
    std::uint64_t mask() const;

    /// The number that the lines stand for, by data type and encoding.
    BusValue value() const;

    /// The lines that stand for a number; of one that does not fit, its lowest bits.
    std::uint64_t linesOf(const BusValue& number) const;

    /// Whether a number is in the range of the signal.
    bool holds(const BusValue& number) const;

    std::string valueText() const;
};

/// A number as its decimal digits.
std::string textOf(const BusValue& number);

#endif
