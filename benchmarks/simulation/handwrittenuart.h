#ifndef HANDWRITTENUART_H
#define HANDWRITTENUART_H

#include <cstdint>
#include <vector>

/// A UART transmitter written by hand over a queue of events: the limit for a simulated one. One start bit,
/// eight data bits, one stop bit; each level of the line is an event of its own.
/// @returns how often the line changed
std::uint64_t sendByHand(const std::vector<std::uint8_t>& bytes, std::int64_t bitTime, std::int64_t byteTime);

#endif
