#ifndef FINDINGKIND_H
#define FINDINGKIND_H

#include "halvwidgetsexport.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// What findings are about. To add a kind, add it here and its row in findingkind.cpp, find it in one of the
/// lints, and tell of it in docs/reference/findings.md.
enum class FindingKind : std::uint32_t
{
    invalidJson,
    invalidDefinition,
    invalidAction,
    unassignedVariable,
    unknownEscape,
    splitExponent,
    unknownStateType,
    unreachableState,
    unknownTarget,
    targetInsideSource,
    invalidOrder,
    shadowedTransition,
    endlessTransitions,
    unknownEvent,
    wakeWithoutTime,
    timeWithoutWake,
    invalidNumber,
    undeclaredName,
    wrongKind,
    wrongType,
    indexOutOfRange,
    undrivenOutput,
    unusedDeclaration,
    unwritableKey,
    constantCondition,
    divisionByZero,
};

enum class FindingSeverity
{
    error,
    warning,
};

/// What users know of a kind.
struct HALVWIDGETS_EXPORT FindingKindInfo
{
    FindingKind kind;
    std::string_view name; ///< stable: scripts switch kinds off by it
    FindingSeverity severity;
    std::string_view summary;
};

/// Every kind, in the order of FindingKind.
HALVWIDGETS_EXPORT std::span<const FindingKindInfo> findingKinds();

HALVWIDGETS_EXPORT const FindingKindInfo& infoOf(FindingKind kind);

/// The kind of this name, if there is one.
HALVWIDGETS_EXPORT std::optional<FindingKind> findingKindOf(std::string_view name);

#endif
