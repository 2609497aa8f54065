#include "simulator/signal.h"

namespace {

std::uint64_t bitsOf(const BusValue& number)
{
    return std::visit([](auto value) { return static_cast<std::uint64_t>(value); }, number);
}

} // namespace

std::uint64_t Signal::mask() const
{
    return ~std::uint64_t{0} >> (maximumWidth - width);
}

BusValue Signal::value() const
{
    const std::uint64_t signBit = std::uint64_t{1} << (width - 1);
    std::uint64_t number = lines;
    if (encoding == BusEncoding::offsetBinary)
        number = lines - signBit;
    else if (encoding == BusEncoding::twosComplement) // the sign fills what is above the lines
        number = (lines ^ signBit) - signBit;
    return dataType == BusDataType::int64 ? BusValue(static_cast<std::int64_t>(number)) : BusValue(number);
}

std::uint64_t Signal::linesOf(const BusValue& number) const
{
    const std::uint64_t offset =
        encoding == BusEncoding::offsetBinary ? std::uint64_t{1} << (width - 1) : std::uint64_t{0};
    return (bitsOf(number) + offset) & mask();
}

bool Signal::holds(const BusValue& number) const
{
    Signal other;
    other.width = width;
    other.dataType = dataType;
    other.encoding = encoding;
    other.lines = linesOf(number);
    // Equal bits stand for unequal numbers when one of them is beyond the other's type.
    const auto isNegative = [](const BusValue& value) {
        const auto* const integer = std::get_if<std::int64_t>(&value);
        return integer != nullptr && *integer < 0;
    };
    return bitsOf(other.value()) == bitsOf(number) && isNegative(other.value()) == isNegative(number);
}

std::string Signal::valueText() const
{
    return textOf(value());
}

std::string textOf(const BusValue& number)
{
    return std::visit([](auto value) { return std::to_string(value); }, number);
}
