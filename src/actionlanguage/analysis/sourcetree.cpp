#include "actionlanguage/analysis/sourcetree.h"

#include "actionlanguage/analysis/sourcetokens.h"
#include "actionlanguage/rules/compiledform.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

using Kind = SourceNodeKind;

class TreeReader
{
public:
    explicit TreeReader(std::string_view source) : m_tokens(source) {}

    SourceNode statement(const JsonValue& form);
    SourceNode expression(const JsonValue& form, DataType type);

private:
    using Reader = void (TreeReader::*)(const JsonValue& form, SourceNode& node);

    struct Form
    {
        std::string_view rule;
        Kind kind;
        Reader read;
    };
    static const std::array<Form, 16> forms;

    SourceNode ofRule(const JsonValue& form, DataType type);
    void readLiteral(const JsonValue& form, SourceNode& node);
    void readCharacter(const JsonValue&, SourceNode& node) { node.token = m_tokens.takeLiteral(); }
    void readVariable(const JsonValue& form, SourceNode& node);
    void readCast(const JsonValue& form, SourceNode& node);
    void readBinary(const JsonValue& form, SourceNode& node);
    void readAssignment(const JsonValue& form, SourceNode& node);
    void readUnary(const JsonValue& form, SourceNode& node);
    void readPrefix(const JsonValue& form, SourceNode& node);
    void readSuffix(const JsonValue& form, SourceNode& node);
    void readCall(const JsonValue& form, SourceNode& node);
    void readExpressionStatement(const JsonValue& form, SourceNode& node);
    void readIf(const JsonValue& form, SourceNode& node);
    void readWhile(const JsonValue& form, SourceNode& node);
    void readDo(const JsonValue& form, SourceNode& node);
    void readFor(const JsonValue& form, SourceNode& node);

    /// From the first place to the last of a node and its children.
    SourceSpan extentOf(const SourceNode& node) const;
    void addTyped(const JsonValue& form, SourceNode& node);
    void addCondition(const JsonValue& form, SourceNode& node);
    void takeOperator(const JsonValue& form, SourceNode& node);

    SourceTokens m_tokens;
};

const std::array<TreeReader::Form, 16> TreeReader::forms{{
    {"charliteral", Kind::literal, &TreeReader::readCharacter},
    {"var", Kind::variable, &TreeReader::readVariable},
    {"cast", Kind::cast, &TreeReader::readCast},
    {"binop", Kind::binary, &TreeReader::readBinary},
    {"assign", Kind::assignment, &TreeReader::readAssignment},
    {"unop", Kind::unary, &TreeReader::readUnary},
    {"pincdec", Kind::prefix, &TreeReader::readPrefix},
    {"sincdec", Kind::suffix, &TreeReader::readSuffix},
    {"comma", Kind::comma, &TreeReader::readBinary},
    {"call", Kind::call, &TreeReader::readCall},
    {"expr", Kind::expression, &TreeReader::readExpressionStatement},
    {"if", Kind::ifStatement, &TreeReader::readIf},
    {"ifelse", Kind::ifStatement, &TreeReader::readIf},
    {"while", Kind::whileStatement, &TreeReader::readWhile},
    {"do", Kind::doStatement, &TreeReader::readDo},
    {"for", Kind::forStatement, &TreeReader::readFor},
}};

SourceSpan TreeReader::extentOf(const SourceNode& node) const
{
    SourceSpan extent = node.token;
    for (const SourceNode& child : node.children) {
        if (child.extent.length == 0)
            continue;
        const bool isAround = node.kind == Kind::cast; // parentheses around the operand are around it, too
        const SourceSpan part = isAround ? child.extent : m_tokens.withParentheses(child.extent);
        if (extent.length == 0) {
            extent = part;
            continue;
        }
        const std::uint64_t start = std::min(extent.position, part.position);
        extent = {start, std::max(extent.end(), part.end()) - start};
    }
    return extent;
}

SourceNode TreeReader::statement(const JsonValue& form)
{
    SourceNode node;
    node.form = &form;
    if (form.isArray()) {
        node.kind = Kind::block;
        for (const JsonValue& element : form.asArray())
            node.children.push_back(statement(element));
        node.extent = extentOf(node);
        return node;
    }
    return form.isObject() ? ofRule(form, DataType::none) : node;
}

SourceNode TreeReader::expression(const JsonValue& form, DataType type)
{
    if (form.isObject())
        return ofRule(form, type);
    SourceNode node{.kind = Kind::literal, .type = type, .form = &form};
    readLiteral(form, node);
    node.extent = node.token;
    return node;
}

SourceNode TreeReader::ofRule(const JsonValue& form, DataType type)
{
    SourceNode node{.type = type, .form = &form};
    const JsonValue& rule = form.member("rule");
    const auto row =
        std::find_if(forms.begin(), forms.end(), [&](const Form& each) { return rule.equals(each.rule); });
    if (row != forms.end()) {
        node.kind = row->kind;
        (this->*row->read)(form, node);
    }
    if (node.extent.length == 0)
        node.extent = extentOf(node);
    return node;
}

void TreeReader::readLiteral(const JsonValue& form, SourceNode& node)
{
    if (form.isString())
        node.text = form.asString();
    node.token = form.isBool() ? m_tokens.takeTruth() : m_tokens.takeLiteral();
}

void TreeReader::readVariable(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "type");
    node.token = m_tokens.takeName();
}

void TreeReader::readCast(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "to");
    node.children.push_back(expression(form.member("expr"), CompiledForm::typeAt(form, "from")));
}

void TreeReader::addTyped(const JsonValue& form, SourceNode& node)
{
    node.children.push_back(expression(form.member("expr"), CompiledForm::typeAt(form, "type")));
}

void TreeReader::takeOperator(const JsonValue& form, SourceNode& node)
{
    node.text = form.member("op").asString();
    node.token = m_tokens.takeText(node.text);
}

void TreeReader::readBinary(const JsonValue& form, SourceNode& node)
{
    addTyped(form.member("lhs"), node);
    if (node.kind == Kind::comma) {
        node.text = ",";
        node.token = m_tokens.takeText(node.text);
    } else {
        takeOperator(form, node);
    }
    addTyped(form.member("rhs"), node);
}

void TreeReader::readAssignment(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "ltype");
    const SourceSpan target = m_tokens.takeName();
    takeOperator(form, node);
    node.children.push_back(expression(form.member("rhs"), CompiledForm::typeAt(form, "rtype")));
    node.extent = joined(target, extentOf(node));
}

void TreeReader::readUnary(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "type");
    takeOperator(form, node);
    node.children.push_back(expression(form.member("expr"), node.type));
}

void TreeReader::readPrefix(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "type");
    takeOperator(form, node);
    node.extent = joined(node.token, m_tokens.takeName());
}

void TreeReader::readSuffix(const JsonValue& form, SourceNode& node)
{
    node.type = CompiledForm::typeAt(form, "type");
    const SourceSpan target = m_tokens.takeName();
    takeOperator(form, node);
    node.extent = joined(target, node.token);
}

void TreeReader::readCall(const JsonValue& form, SourceNode& node)
{
    node.text = form.member("func").asString();
    node.token = m_tokens.takeText(node.text);
    const SourceSpan close = m_tokens.partnerOfNext();
    const JsonArray& types = form.member("argTypes").asArray();
    const JsonArray& arguments = form.member("args").asArray();
    for (std::size_t i = 0; i < arguments.size() && i < types.size(); ++i) {
        const std::optional<DataType> type = typeFromName(types[i].asString());
        node.children.push_back(expression(arguments[i], type.value_or(DataType::unknown)));
    }
    node.extent = joined(node.token, close);
}

void TreeReader::readExpressionStatement(const JsonValue& form, SourceNode& node)
{
    addTyped(form, node);
}

void TreeReader::addCondition(const JsonValue& form, SourceNode& node)
{
    node.children.push_back(expression(form.member("cond"), DataType::boolean));
}

void TreeReader::readIf(const JsonValue& form, SourceNode& node)
{
    node.token = m_tokens.takeText("if");
    addCondition(form, node);
    node.children.push_back(statement(form.member("onTrue")));
    if (form.has("onFalse"))
        node.children.push_back(statement(form.member("onFalse")));
}

void TreeReader::readWhile(const JsonValue& form, SourceNode& node)
{
    node.token = m_tokens.takeText("while");
    addCondition(form, node);
    node.children.push_back(statement(form.member("loop")));
}

void TreeReader::readDo(const JsonValue& form, SourceNode& node)
{
    node.token = m_tokens.takeText("do");
    node.children.push_back(statement(form.member("loop")));
    addCondition(form, node);
}

void TreeReader::readFor(const JsonValue& form, SourceNode& node)
{
    node.token = m_tokens.takeText("for");
    if (form.has("init"))
        node.children.push_back(statement(form.member("init")));
    if (form.has("cond"))
        addCondition(form, node);
    if (form.has("iter"))
        addTyped(form.member("iter"), node);
    node.children.push_back(statement(form.member("loop")));
}

} // namespace

SourceNode sourceTreeOfStatements(const JsonValue& form, std::string_view source)
{
    return TreeReader(source).statement(form.member("statements"));
}

SourceNode sourceTreeOfExpression(const JsonValue& form, DataType type, std::string_view source)
{
    return TreeReader(source).expression(form, type);
}
