#include "statechart/text/numbertext.h"

#include <charconv>

namespace {

template <class Number>
std::string toText(Number value)
{
    char buffer[32];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, end);
}

} // namespace

std::string numberText(std::int64_t value)
{
    return toText(value);
}

std::string numberText(double value)
{
    return toText(value);
}
