#include "simulator/signalvalue.h"

#include "simulator/integertext.h"
#include "statechart/json/jsonwriter.h"

#include <stdexcept>

std::uint64_t linesOf(const Signal& signal, const JsonValue& value)
{
    if (!signal.isBus()) {
        if (value.equals(0) || value.equals(1))
            return value.equals(1) ? 1 : 0;
        throw std::runtime_error("the value of pin '" + signal.name + "' must be 0 or 1, not " +
                                 toString(value));
    }
    const std::optional<BusValue> number = integerOf(value);
    if (!number)
        throw std::runtime_error("the value of bus '" + signal.name + "' must be an integer, not " +
                                 toString(value));
    if (!signal.holds(*number))
        throw std::runtime_error("bus '" + signal.name + "' has no lines for " + textOf(*number) +
                                 ": it is " + std::to_string(signal.width) + " wide");
    return signal.linesOf(*number);
}
