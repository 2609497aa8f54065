#include "statechart/check/standingworld.h"
#include "statechart/deviceparameters.h"

#include <algorithm>
#include <cmath>

// The part of StandingWorld that finds the values worth a try.

namespace {

using Kind = StandingThing::Kind;

constexpr double largestInt = 2147483647.0; // as large as literals go

bool isWhole(double value)
{
    return std::trunc(value) == value && std::abs(value) <= largestInt;
}

/// The numbers themselves, and what lies between, below and above them.
std::set<double> withNeighbours(const std::set<double>& numbers, bool areIntegers)
{
    std::set<double> all{0.0, 1.0};
    std::optional<double> last;
    for (const double number : numbers) {
        all.insert(number);
        if (areIntegers)
            all.insert({number - 1.0, number + 1.0});
        else if (last)
            all.insert(*last + (number - *last) / 2.0);
        last = number;
    }
    if (!areIntegers && !numbers.empty()) {
        all.insert(*numbers.begin() - 1.0);
        all.insert(*numbers.begin() / 2.0);
        all.insert(*numbers.rbegin() * 2.0 + 1.0);
    }
    return all;
}

} // namespace

std::vector<double> StandingWorld::candidatesFor(const StandingThing& thing) const
{
    std::vector<double> candidates = numbersFor(thing);
    std::erase_if(candidates,
                  [&](double value) { return !std::isfinite(value) || !isConsistent(thing, value); });
    return candidates;
}

std::vector<double> StandingWorld::numbersFor(const StandingThing& thing) const
{
    if (thing.kind == Kind::level)
        return {1.0, 0.0};
    if (thing.kind == Kind::edge) {
        std::vector<double> values;
        for (std::size_t i = 0; i <= 2 * m_edgePins.size(); ++i)
            values.push_back(static_cast<double>(i));
        if (const std::size_t pin = edgePinIndex(thing.pin); pin < m_edgePins.size()) {
            const auto own = values.begin() + 1 + 2 * static_cast<std::ptrdiff_t>(pin);
            std::rotate(values.begin(), own, own + 2);
        }
        return values;
    }
    const bool isReal =
        thing.kind == Kind::time || (thing.kind == Kind::parameter && thing.name->type == DataType::real);
    const std::set<double> numbers = withNeighbours(m_numbers, !isReal);
    std::vector<double> values(numbers.begin(), numbers.end());
    if (!isReal)
        std::erase_if(values, [](double value) { return !isWhole(value); });
    return values;
}

/// A rising pin is high; the time begins at 0; a bus holds no more than its width does.
bool StandingWorld::isConsistent(const StandingThing& thing, double value) const
{
    if (thing.kind == Kind::time)
        return value >= 0.0;
    if (thing.kind == Kind::parameter) {
        const bool isDelay = thing.name->identifier == std::string_view(outputDelayParameter);
        return thing.name->type == DataType::real ? !isDelay || value > 0.0
                                                  : thing.name->type == DataType::integer64 || value >= 0.0;
    }
    if (thing.kind == Kind::number) {
        const double range = std::pow(2.0, *thing.name->width); // as many values, half of them negative
        const bool isSigned = thing.name->type == DataType::integer64;
        return isSigned ? value >= -range / 2.0 && value < range / 2.0 : value >= 0.0 && value < range;
    }
    return fitsEdge(thing, value);
}

/// Whether an edge and the level of its pin go together, as far as they are decided.
bool StandingWorld::fitsEdge(const StandingThing& thing, double value) const
{
    const std::optional<double> edge = thing.kind == Kind::edge ? value : decided("edge");
    if (!edge || *edge == 0.0)
        return true;
    const std::size_t pin = static_cast<std::size_t>(*edge - 1.0) / 2;
    const std::string levelKey = "pin " + m_edgePins[pin];
    const std::optional<double> level = thing.key == levelKey ? value : decided(levelKey);
    return !level || (*level != 0.0) == (*edge == risingEdgeOf(pin));
}
