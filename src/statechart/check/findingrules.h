#ifndef FINDINGRULES_H
#define FINDINGRULES_H

#include "statechart/check/findingkind.h"

#include <bitset>

/// Which warnings a user wants, and which of them count as errors. By default all, and none.
///
///     FindingRules rules;
///     rules.disable(FindingKind::constantCondition);
///     rules.makeError(FindingKind::unknownTarget);
class HALVWIDGETS_EXPORT FindingRules
{
public:
    /// What is disabled is not reported, whatever else was said of it. Errors cannot be disabled: nothing
    /// happens.
    void disable(FindingKind kind)
    {
        if (infoOf(kind).severity == FindingSeverity::warning)
            m_disabled.set(index(kind));
    }

    void makeError(FindingKind kind) { m_errors.set(index(kind)); }

    bool isEnabled(FindingKind kind) const { return !m_disabled.test(index(kind)); }

    FindingSeverity severityOf(FindingKind kind) const
    {
        return m_errors.test(index(kind)) ? FindingSeverity::error : infoOf(kind).severity;
    }

private:
    static std::size_t index(FindingKind kind) { return static_cast<std::size_t>(kind); }

    using Kinds = std::bitset<static_cast<std::size_t>(FindingKind::divisionByZero) + 1>;
    Kinds m_disabled;
    Kinds m_errors;
};

#endif
