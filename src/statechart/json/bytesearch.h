#ifndef BYTESEARCH_H
#define BYTESEARCH_H

#include <bit>
#include <cstdint>
#include <cstring>

// Eight bytes are looked at in one word. What these give is the flag of a byte in its highest bit; above the
// lowest flag there may be false ones.

constexpr std::uint64_t inEachByte(std::uint8_t byte)
{
    return byte * std::uint64_t{0x0101010101010101};
}

constexpr std::uint64_t bytesBelow(std::uint64_t word, std::uint8_t limit)
{
    return (word - inEachByte(limit)) & ~word & inEachByte(0x80);
}

constexpr std::uint64_t bytesEqual(std::uint64_t word, char byte)
{
    return bytesBelow(word ^ inEachByte(static_cast<std::uint8_t>(byte)), 1);
}

/// The first byte of a text that is sought, or its end. `flags` gives the flags of those bytes in a word,
/// `isSought` says it of one byte.
template <class Flags, class IsSought>
const char* findByte(const char* next, const char* end, Flags flags, IsSought isSought)
{
    for (std::uint64_t word = 0; end - next >= 8; next += 8) {
        std::memcpy(&word, next, 8);
        const std::uint64_t found = flags(word);
        if (found == 0)
            continue;
        if constexpr (std::endian::native == std::endian::little)
            return next + std::countr_zero(found) / 8;
        break;
    }
    while (next != end && !isSought(*next))
        ++next;
    return next;
}

#endif
