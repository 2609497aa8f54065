#include "simulator/signal.h"

#include <limits>

namespace {

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::uint64_t allLines = std::numeric_limits<std::uint64_t>::max();

Signal bus(std::uint32_t width, BusEncoding encoding)
{
    Signal signal;
    signal.kind = Signal::Kind::bus;
    signal.width = width;
    signal.encoding = encoding;
    signal.dataType = encoding == BusEncoding::unsignedBinary ? BusDataType::uint64 : BusDataType::int64;
    return signal;
}

struct Row
{
    std::uint32_t width;
    BusEncoding encoding;
    BusValue value;
    std::uint64_t lines;
};

constexpr BusEncoding offset = BusEncoding::offsetBinary;
constexpr BusEncoding complement = BusEncoding::twosComplement;
constexpr BusEncoding plain = BusEncoding::unsignedBinary;

} // namespace

TEST(Signal, HoldsNumbersByWidthAndEncoding)
{
    const Row rows[] = {
        {4, offset, std::int64_t{-8}, 0},
        {4, offset, std::int64_t{0}, 8},
        {4, offset, std::int64_t{7}, 15},
        {1, offset, std::int64_t{-1}, 0},
        {1, offset, std::int64_t{0}, 1},
        {64, offset, smallest, 0},
        {64, offset, largest, allLines},
        {4, complement, std::int64_t{-8}, 8},
        {4, complement, std::int64_t{-1}, 15},
        {4, complement, std::int64_t{7}, 7},
        {1, complement, std::int64_t{-1}, 1},
        {64, complement, smallest, std::uint64_t{1} << 63},
        {64, complement, std::int64_t{-1}, allLines},
        {4, plain, std::uint64_t{15}, 15},
        {1, plain, std::uint64_t{1}, 1},
        {64, plain, allLines, allLines},
    };
    for (const Row& row : rows) {
        Signal signal = bus(row.width, row.encoding);
        EXPECT_TRUE(signal.holds(row.value)) << textOf(row.value) << " in " << row.width;
        signal.lines = signal.linesOf(row.value);
        EXPECT_EQ(signal.lines, row.lines) << textOf(row.value) << " in " << row.width;
        EXPECT_EQ(signal.value(), row.value) << row.lines << " in " << row.width;
        EXPECT_EQ(signal.valueText(), textOf(row.value));
    }
}

TEST(Signal, HoldsNoNumberBeyondItsLines)
{
    EXPECT_FALSE(bus(4, offset).holds(std::int64_t{8}));
    EXPECT_FALSE(bus(4, offset).holds(std::int64_t{-9}));
    EXPECT_FALSE(bus(4, complement).holds(std::int64_t{8}));
    EXPECT_FALSE(bus(4, complement).holds(std::int64_t{-9}));
    EXPECT_FALSE(bus(64, complement).holds(allLines));
    EXPECT_FALSE(bus(4, plain).holds(std::uint64_t{16}));
    EXPECT_FALSE(bus(4, plain).holds(std::int64_t{-1}));
    EXPECT_FALSE(bus(64, plain).holds(std::int64_t{-1}));
    EXPECT_TRUE(bus(4, plain).holds(std::int64_t{15}));
    EXPECT_TRUE(bus(4, complement).holds(std::uint64_t{7}));
}

TEST(Signal, KeepsTheLowestBitsOfWhatDoesNotFit)
{
    EXPECT_EQ(bus(4, plain).linesOf(std::int64_t{-1}), 15u);
    EXPECT_EQ(bus(4, plain).linesOf(std::uint64_t{18}), 2u);
    EXPECT_EQ(bus(4, complement).linesOf(std::int64_t{9}), 9u);
    EXPECT_EQ(bus(4, offset).linesOf(std::int64_t{8}), 0u);
}
