#include "statechart/check/findingkind.h"

#include <algorithm>
#include <array>

namespace {

using Severity = FindingSeverity;

constexpr auto kinds = std::to_array<FindingKindInfo>({
    {FindingKind::invalidJson, "invalid-json", Severity::error, "the text is no JSON document of an object"},
    {FindingKind::invalidDefinition, "invalid-definition", Severity::error,
     "a part of the definition is missing or wrong"},
    {FindingKind::invalidAction, "invalid-action", Severity::error,
     "an action, condition or wake time does not compile"},
    {FindingKind::unassignedVariable, "unassigned-variable", Severity::warning,
     "an action declares a variable and never assigns it"},
    {FindingKind::unknownEscape, "unknown-escape", Severity::warning,
     "a backslash stands before a character that is no escape"},
    {FindingKind::splitExponent, "split-exponent", Severity::warning,
     "a number with an exponent is read as another than it looks"},
    {FindingKind::unknownStateType, "unknown-state-type", Severity::warning,
     "a state is neither atomic, nor compound, nor parallel"},
    {FindingKind::unreachableState, "unreachable-state", Severity::warning, "nothing leads to a state"},
    {FindingKind::unknownTarget, "unknown-target", Severity::warning,
     "the target of a transition is no state"},
    {FindingKind::targetInsideSource, "target-inside-source", Severity::warning,
     "a transition leads from a state to one inside of it, and exits nothing"},
    {FindingKind::invalidOrder, "invalid-order", Severity::warning,
     "the order of a transition is no integer"},
    {FindingKind::shadowedTransition, "shadowed-transition", Severity::warning,
     "an earlier transition of the same state and event is always taken"},
    {FindingKind::endlessTransitions, "endless-transitions", Severity::warning,
     "transitions without event can follow each other for ever"},
    {FindingKind::unknownEvent, "unknown-event", Severity::warning,
     "no transition of a device is taken at this event"},
    {FindingKind::wakeWithoutTime, "wake-without-time", Severity::warning,
     "a transition waits for a wake that nothing schedules"},
    {FindingKind::timeWithoutWake, "time-without-wake", Severity::warning,
     "a wake time stands on a transition that waits for no wake"},
    {FindingKind::invalidNumber, "invalid-number", Severity::warning,
     "a wake time or a text given to 'etod' is no number"},
    {FindingKind::undeclaredName, "undeclared-name", Severity::warning,
     "an action names a pin, bus, variable or parameter that the device does not have"},
    {FindingKind::wrongKind, "wrong-kind", Severity::warning,
     "an action uses a name as what it is not, such as a bus as a pin"},
    {FindingKind::wrongType, "wrong-type", Severity::warning,
     "an action reads or sets a variable, parameter or bus as another type"},
    {FindingKind::indexOutOfRange, "index-out-of-range", Severity::warning,
     "an action names a pin of a bus that is not so wide"},
    {FindingKind::undrivenOutput, "undriven-output", Severity::warning, "no action drives an output"},
    {FindingKind::unusedDeclaration, "unused-declaration", Severity::warning,
     "no action uses an input, variable or parameter"},
    {FindingKind::unwritableKey, "unwritable-key", Severity::warning,
     "a key has a quote or a backslash, so that it cannot be read back once it is written"},
    {FindingKind::constantCondition, "constant-condition", Severity::warning,
     "a condition is always true or always false"},
    {FindingKind::divisionByZero, "division-by-zero", Severity::warning,
     "the divisor of an integer division can only be zero"},
});

constexpr bool standInOrder()
{
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (kinds[i].kind != static_cast<FindingKind>(i))
            return false;
    }
    return kinds.size() == static_cast<std::size_t>(FindingKind::divisionByZero) + 1;
}
static_assert(standInOrder());

} // namespace

std::span<const FindingKindInfo> findingKinds()
{
    return kinds;
}

const FindingKindInfo& infoOf(FindingKind kind)
{
    return kinds[static_cast<std::size_t>(kind)];
}

std::optional<FindingKind> findingKindOf(std::string_view name)
{
    const auto* const row = std::ranges::find(kinds, name, &FindingKindInfo::name);
    return row == kinds.end() ? std::nullopt : std::optional(row->kind);
}
