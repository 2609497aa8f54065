#ifndef CONSTANTFOLDING_H
#define CONSTANTFOLDING_H

#include "actionlanguage/analysis/sourcetree.h"

#include <memory>
#include <optional>

class BuildRules;

/// Finds out what expressions are worth whatever happens at run time. The values come from linked code
/// itself, so that they are those of a run; an integer division that would fault is never made.
class ConstantFolding
{
public:
    ConstantFolding();
    ~ConstantFolding();

    /// What a condition always is. With "&&" and "||" one constant side may be enough.
    std::optional<bool> truthOf(const SourceNode& node) const;

    /// Whether an integer expression can only be zero: a product with zero is, too.
    bool isAlwaysZero(const SourceNode& node) const;

    /// Whether nothing but literals, operators and the general library's functions of values make it up, and
    /// it can be evaluated.
    bool isConstant(const SourceNode& node) const;

private:
    template <class Result>
    Result valueOf(const SourceNode& node) const;
    bool isPureFunction(std::string_view name) const;
    bool isSafeDivisor(const SourceNode& node) const;

    std::unique_ptr<const BuildRules> m_rules;
};

#endif
