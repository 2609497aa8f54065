#include "actionlanguage/analysis/constantfolding.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/functions/functionlibrary.h"
#include "actionlanguage/linker.h"
#include "actionlanguage/operators/functionoperators.h"
#include "actionlanguage/runtime/executioninterface.h"

#include <algorithm>
#include <map>

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

/// The variable that a node writes; null for one that writes none.
const JsonValue* writtenVariable(const SourceNode& node)
{
    switch (node.kind) {
    case Kind::assignment:
        return &node.form->member("lhs").member("id");
    case Kind::prefix:
    case Kind::suffix:
        return &node.form->member("expr").member("id");
    default:
        return nullptr;
    }
}

/// There is no literal of 64 bits. A function of the type's name, which no text can call, is as good as one.
template <class Value>
std::unique_ptr<const FunctionRule> wideLiteralRule()
{
    return std::make_unique<FunctionRule>(
        typeName(dataTypeOf<Value>), functionOverloads([](AbstractExecutionInterface&, std::int32_t value) {
            return static_cast<Value>(value);
        }));
}

} // namespace

ConstantFolding::ConstantFolding(FunctionRules pureFunctions)
{
    pureFunctions.push_back(wideLiteralRule<std::int64_t>());
    pureFunctions.push_back(wideLiteralRule<std::uint64_t>());
    for (const auto& rule : pureFunctions)
        m_pureFunctions.insert(rule->name());
    for (const auto& rule : constructFunctionRules()) {
        if (rule->name() != "print" && rule->name() != "format") // they speak with the one who runs them
            m_pureFunctions.insert(rule->name());
    }
    m_rules = std::make_unique<const BuildRules>(std::move(pureFunctions));
}

JsonValue ConstantFolding::literal(DataType type, double value)
{
    switch (type) {
    case DataType::boolean:
        return JsonValue(value != 0.0);
    case DataType::real:
        return JsonValue(value);
    default:
        break;
    }
    const JsonValue number(static_cast<std::int32_t>(value));
    if (type == DataType::integer)
        return number;
    return JsonObject{{"rule", "call"},
                      {"func", typeName(type)},
                      {"argTypes", JsonArray{JsonValue(typeName(DataType::integer))}},
                      {"args", JsonArray{number}}};
}

ConstantFolding::~ConstantFolding() = default;

/// Of a divisor that is constant.
bool ConstantFolding::isSafeDivisor(const SourceNode& node) const
{
    // Neither zero, nor the -1 that the most negative value cannot be divided by.
    const auto value = node.type == DataType::integer ? valueOf<std::int32_t>(node) : std::nullopt;
    return value && *value != 0 && *value != -1;
}

bool ConstantFolding::isConstant(const SourceNode& node) const
{
    switch (node.kind) {
    case Kind::literal:
        return true;
    case Kind::call:
        if (!m_pureFunctions.contains(node.text))
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
std::optional<Result> ConstantFolding::valueOf(const SourceNode& node) const
{
    Silence silence;
    try {
        return LinkerActual(*m_rules).linkExpression(*node.form).as<Result>().evaluate(silence);
    } catch (const std::exception&) {
        return std::nullopt; // it would fail whenever it runs
    }
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

std::optional<std::int32_t> ConstantFolding::intOf(const SourceNode& node) const
{
    if (node.type != DataType::integer || !isConstant(node))
        return std::nullopt;
    return valueOf<std::int32_t>(node);
}

bool ConstantFolding::isAlwaysZero(const SourceNode& node, const VariableIds& zeros) const
{
    if (!isInteger(node.type))
        return false;
    if (node.kind == Kind::variable)
        return zeros.contains(node.form->member("id").asString());
    if (node.kind == Kind::cast)
        return isAlwaysZero(node.children.front(), zeros);
    if (node.isOperator("*") || node.isOperator("&")) {
        return std::ranges::any_of(node.children,
                                   [&](const SourceNode& child) { return isAlwaysZero(child, zeros); });
    }
    return intOf(node) == 0;
}

VariableIds ConstantFolding::zeroVariablesOf(const SourceNode& tree) const
{
    std::map<std::string_view, int> writes;
    visitSourceTree(tree, [&](const SourceNode& node) {
        if (const JsonValue* const id = writtenVariable(node))
            ++writes[id->asString()];
    });
    VariableIds zeros;
    visitSourceTree(tree, [&](const SourceNode& node) {
        if (node.kind != Kind::assignment || node.text != "=")
            return;
        const std::string& id = writtenVariable(node)->asString();
        if (isInteger(node.type) && writes[id] == 1 && isAlwaysZero(node.children.front(), zeros))
            zeros.insert(id);
    });
    return zeros;
}
