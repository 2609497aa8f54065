#include "simulator/integertext.h"

#include <charconv>
#include <cstdint>
#include <string_view>

namespace {

template <class Integer>
std::optional<Integer> parse(std::string_view digits, int base)
{
    Integer integer{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), integer, base);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return integer;
}

std::optional<BusValue> integerOfText(std::string_view text)
{
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X"))
        base = 16;
    else if (text.starts_with("0b") || text.starts_with("0B"))
        base = 2;
    const std::string_view digits = base == 10 ? text : text.substr(2);
    if (!digits.starts_with('-')) {
        if (const auto number = parse<std::uint64_t>(digits, base))
            return *number;
    } else if (base == 10) {
        if (const auto number = parse<std::int64_t>(digits, base))
            return *number;
    }
    return std::nullopt;
}

} // namespace

std::optional<BusValue> integerOf(const JsonValue& value)
{
    if (value.isInt())
        return std::int64_t{value.asInt()};
    if (value.isString())
        return integerOfText(value.asString());
    return std::nullopt;
}
