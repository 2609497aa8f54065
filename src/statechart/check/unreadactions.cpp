#include "statechart/check/unreadactions.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 6> textKeys{"onEntry",    "onExit",   "actions",
                                                   "conditions", "wakeTime", "wakeTimeCalc"};

std::size_t lengthOf(JsonPlace place)
{
    std::size_t length = 0;
    for (; !place.isTop(); place = place.outer())
        ++length;
    return length;
}

/// Whether a failure is about a text, or a list of them, that is none. Inside "states" keys and what authors
/// named take turns: so a state that is called "actions" is no text.
bool isAboutNoText(const CompileRecord::Failure& failure)
{
    if (failure.text || failure.place.isTop())
        return false;
    const auto* const key = std::get_if<std::string>(&failure.place.segment());
    if (key == nullptr)
        return true;
    return std::ranges::find(textKeys, *key) != textKeys.end() && lengthOf(failure.place) % 2 == 1;
}

} // namespace

bool hasUnreadableActions(const CheckedDefinition& checked)
{
    return !checked.chart.isWhole() || std::ranges::any_of(checked.failures, isAboutNoText);
}
