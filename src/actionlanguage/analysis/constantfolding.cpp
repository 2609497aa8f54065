#include "actionlanguage/analysis/constantfolding.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/functions/functionlibrary.h"
#include "actionlanguage/linker.h"
#include "actionlanguage/runtime/executioninterface.h"

#include <algorithm>

namespace {

using Kind = SourceNodeKind;

/// Constant code prints nothing.
class Silence : public AbstractExecutionInterface
{
public:
    void print(const std::string&) override {}
};

bool isInteger(DataType type)
{
    return type == DataType::integer || type == DataType::integer64 || type == DataType::unsigned64;
}

bool isIntegerDivision(const SourceNode& node)
{
    return (node.isOperator("/") || node.isOperator("%")) && isInteger(node.type) &&
           isInteger(node.children.back().type);
}

} // namespace

ConstantFolding::ConstantFolding() : m_rules(std::make_unique<const BuildRules>(FunctionRules())) {}

ConstantFolding::~ConstantFolding() = default;

/// Everything of the general library but what speaks with the one who runs it.
bool ConstantFolding::isPureFunction(std::string_view name) const
{
    if (name == "print" || name == "format")
        return false;
    static const FunctionRules library = constructFunctionRules();
    return std::ranges::any_of(library, [&](const auto& rule) { return rule->name() == name; });
}

bool ConstantFolding::isSafeDivisor(const SourceNode& node) const
{
    // Neither zero, nor the -1 that the most negative value cannot be divided by.
    const auto is = [&](auto value) { return value == 0 || value == static_cast<decltype(value)>(-1); };
    return node.type == DataType::integer && !is(valueOf<std::int32_t>(node));
}

bool ConstantFolding::isConstant(const SourceNode& node) const
{
    switch (node.kind) {
    case Kind::literal:
        return true;
    case Kind::call:
        if (!isPureFunction(node.text))
            return false;
        break;
    case Kind::cast:
    case Kind::binary:
    case Kind::unary:
    case Kind::comma:
        break;
    default:
        return false;
    }
    return std::ranges::all_of(node.children, [&](const SourceNode& child) { return isConstant(child); }) &&
           (!isIntegerDivision(node) || isSafeDivisor(node.children.back()));
}

template <class Result>
Result ConstantFolding::valueOf(const SourceNode& node) const
{
    Silence silence;
    return LinkerActual(*m_rules).linkExpression(*node.form).as<Result>().evaluate(silence);
}

std::optional<bool> ConstantFolding::truthOf(const SourceNode& node) const
{
    const bool isAnd = node.isOperator("&&");
    if (isAnd || node.isOperator("||")) {
        const std::optional<bool> left = truthOf(node.children.front());
        const std::optional<bool> right = truthOf(node.children.back());
        const bool decisive = !isAnd; // the value of one side that decides
        if (left == decisive || right == decisive)
            return decisive;
        if (left && right)
            return !decisive;
        return std::nullopt;
    }
    if (node.kind == Kind::unary && node.text == "!") {
        const std::optional<bool> operand = truthOf(node.children.front());
        return operand ? std::optional(!*operand) : std::nullopt;
    }
    if (node.kind == Kind::cast && isAlwaysZero(node.children.front()))
        return false;
    if (node.type != DataType::boolean || !isConstant(node))
        return std::nullopt;
    return valueOf<bool>(node);
}

bool ConstantFolding::isAlwaysZero(const SourceNode& node) const
{
    if (!isInteger(node.type))
        return false;
    if (node.isOperator("*") || node.isOperator("&")) {
        return std::ranges::any_of(node.children,
                                   [&](const SourceNode& child) { return isAlwaysZero(child); });
    }
    if (!isConstant(node))
        return false;
    return node.type == DataType::integer && valueOf<std::int32_t>(node) == 0;
}
