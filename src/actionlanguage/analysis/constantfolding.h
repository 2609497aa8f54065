#ifndef CONSTANTFOLDING_H
#define CONSTANTFOLDING_H

#include "actionlanguage/analysis/sourcetree.h"
#include "actionlanguage/expressions/functionrule.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>

class BuildRules;

/// The ids of variables of one text.
using VariableIds = std::set<std::string, std::less<>>;

/// Finds out what expressions are worth whatever happens at run time. The values come from linked code
/// itself, so that they are those of a run; an integer division that would fault is never made.
class ConstantFolding
{
public:
    /// @param pureFunctions Functions beside the general library whose value depends on nothing but their
    /// arguments. They may throw: then there is no value.
    explicit ConstantFolding(FunctionRules pureFunctions = {});
    ~ConstantFolding();

    /// A compiled form of this type and value, a number within the range of int for all integers. It can
    /// stand in for an expression in forms that are given to this class.
    static JsonValue literal(DataType type, double value);

    /// What a condition always is. With "&&" and "||" one constant side may be enough.
    std::optional<bool> truthOf(const SourceNode& node) const;

    /// What an expression of the type int always is.
    std::optional<std::int32_t> intOf(const SourceNode& node) const;

    /// Whether an integer expression can only be zero, also because a factor is, or one of the variables that
    /// are known to be.
    bool isAlwaysZero(const SourceNode& node, const VariableIds& zeros = {}) const;

    /// The variables of a text that get a value once, and that one zero.
    VariableIds zeroVariablesOf(const SourceNode& tree) const;

    /// Whether nothing but literals, operators and functions of values make it up, and no division in it can
    /// fault.
    bool isConstant(const SourceNode& node) const;

private:
    template <class Result>
    std::optional<Result> valueOf(const SourceNode& node) const;
    bool isSafeDivisor(const SourceNode& node) const;

    std::set<std::string, std::less<>> m_pureFunctions;
    std::unique_ptr<const BuildRules> m_rules;
};

#endif
