// Random expressions: how operators group, and what linked code computes, each compared with a small
// evaluator of its own.

#include "languagetester.h"
#include "operatormodel.h"
#include "support/concatenated.h"

#include <algorithm>
#include <random>

namespace {

using Random = std::mt19937;

template <class List>
const auto& anyOf(const List& list, Random& random)
{
    return list[random() % std::size(list)];
}

// --- grouping: a flat row of operators without parentheses

/// Each operator sweeps once, left to right, in the order of precedence; so the last place of the operator
/// that sweeps last is the root.
std::string groupedShape(const std::vector<std::string>& operands, const std::vector<std::string>& operators,
                         std::size_t first, std::size_t last)
{
    if (first == last)
        return operands[first];
    const auto rank = [&](std::size_t place) {
        const auto& all = binaryOperators();
        return std::find(all.begin(), all.end(), operators[place]) - all.begin();
    };
    std::size_t root = first;
    for (std::size_t place = first; place < last; ++place)
        if (rank(place) >= rank(root))
            root = place;
    return concatenated({"(", groupedShape(operands, operators, first, root), " ", operators[root], " ",
                         groupedShape(operands, operators, root + 1, last), ")"});
}

TEST(RandomRows, OfBinaryOperatorsGroupByTheOrderOfTheSweeps)
{
    constexpr std::string_view intOperators[] = {"*", "/", "%", "+", "-", "<<", ">>", "&", "^", "|"};
    Random random(7);
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::string> operands{std::to_string(random() % 100)};
        std::vector<std::string> operators;
        std::string source = operands.front();
        for (auto length = 1 + random() % 12; length > 0; --length) {
            operators.emplace_back(anyOf(intOperators, random));
            operands.push_back(std::to_string(random() % 100));
            source += concatenated({" ", operators.back(), " ", operands.back()});
        }
        const CompileResult compiled = languageBuilder().compileStatements(source + ";");
        EXPECT_EQ(shapeOf(lastExpressionOf(compiled.value()).form),
                  groupedShape(operands, operators, 0, operators.size()))
            << source;
    }
}

// --- values: trees of all operators, with side effects on a few variables

struct Node
{
    enum class Kind
    {
        literal,
        variable,
        unary,
        binary,
        assignment,
        prefix,
        suffix,
        comma,
        largest,
    };

    Kind kind = Kind::literal;
    char letter = 'i';
    std::string op;
    std::size_t variable = 0;
    ModelValue literal;
    std::vector<Node> operands;
};

constexpr std::string_view treeLetters = "bdiul";

/// Makes a tree of a type and, at the same time, nothing else: text and value are read off it.
class TreeMaker
{
public:
    TreeMaker(Random& random, const std::vector<ModelValue>& variables)
        : m_random(random), m_variables(variables)
    {}

    Node make(char letter, int depth)
    {
        if (depth > 0)
            for (int attempt = 0; attempt < 4; ++attempt)
                if (std::optional<Node> node = makeInner(letter, depth - 1))
                    return std::move(*node);
        return makeLeaf(letter);
    }

private:
    Node makeLeaf(char letter)
    {
        // Literals of 64 bits do not exist.
        if (letter != 'l' && letter != 'u' && m_random() % 2 == 0) {
            Node node{Node::Kind::literal, letter, {}, 0, {}, {}};
            if (letter == 'b')
                node.literal = m_random() % 2 == 0;
            else if (letter == 'd')
                node.literal = static_cast<double>(m_random() % 1000) / 8;
            else
                node.literal = static_cast<std::int32_t>(m_random() % 40);
            return node;
        }
        return {Node::Kind::variable, letter, {}, variableOf(letter), {}, {}};
    }

    std::optional<Node> makeInner(char letter, int depth)
    {
        switch (m_random() % 8) {
        case 0:
            return makeUnary(letter, depth);
        case 1:
            return makeAssignment(letter, depth);
        case 2:
            return makeIncDec(letter);
        case 3: {
            const char left = anyOf(treeLetters, m_random);
            return Node{Node::Kind::comma, letter, ",", 0, {}, {make(left, depth), make(letter, depth)}};
        }
        case 4:
            if (letter == 'b')
                return std::nullopt;
            return Node{
                Node::Kind::largest, letter, "max", 0, {}, {make(letter, depth), make(letter, depth)}};
        default:
            return makeBinary(letter, depth);
        }
    }

    std::optional<Node> makeUnary(char letter, int depth)
    {
        const std::string& op = anyOf(unaryOperators(), m_random);
        if (!hasUnary(op, letter))
            return std::nullopt;
        return Node{Node::Kind::unary, letter, op, 0, {}, {make(letter, depth)}};
    }

    std::optional<Node> makeBinary(char letter, int depth)
    {
        for (int attempt = 0; attempt < 40; ++attempt) {
            const std::string& op = anyOf(binaryOperators(), m_random);
            const char left = anyOf(treeLetters, m_random);
            const char right = anyOf(treeLetters, m_random);
            if (binaryResult(op, left, right) == letter)
                return Node{Node::Kind::binary, letter, op, 0, {}, {make(left, depth), make(right, depth)}};
        }
        return std::nullopt;
    }

    std::optional<Node> makeAssignment(char letter, int depth)
    {
        const std::string& op = anyOf(assignmentOperators(), m_random);
        const char right = anyOf(treeLetters, m_random);
        if (!hasAssignment(op, letter, right))
            return std::nullopt;
        return Node{Node::Kind::assignment, letter, op, variableOf(letter), {}, {make(right, depth)}};
    }

    std::optional<Node> makeIncDec(char letter)
    {
        if (!hasIncDec(letter))
            return std::nullopt;
        const auto kind = m_random() % 2 == 0 ? Node::Kind::prefix : Node::Kind::suffix;
        return Node{kind, letter, m_random() % 2 == 0 ? "++" : "--", variableOf(letter), {}, {}};
    }

    std::size_t variableOf(char letter)
    {
        while (true) {
            const std::size_t variable = m_random() % m_variables.size();
            if (letterOf(m_variables[variable]) == letter)
                return variable;
        }
    }

    Random& m_random;
    const std::vector<ModelValue>& m_variables;
};

std::string nameOf(std::size_t variable)
{
    return concatenated({"x", std::to_string(variable)});
}

std::string textOf(const Node& node)
{
    switch (node.kind) {
    case Node::Kind::literal: {
        std::string text = printedText(node.literal);
        return node.letter == 'd' && text.find('.') == std::string::npos ? text + "." : text;
    }
    case Node::Kind::variable:
        return nameOf(node.variable);
    case Node::Kind::unary:
        return concatenated({"(", node.op, textOf(node.operands[0]), ")"});
    case Node::Kind::assignment:
        return concatenated({"(", nameOf(node.variable), " ", node.op, " ", textOf(node.operands[0]), ")"});
    case Node::Kind::prefix:
        return concatenated({"(", node.op, nameOf(node.variable), ")"});
    case Node::Kind::suffix:
        return concatenated({"(", nameOf(node.variable), node.op, ")"});
    case Node::Kind::largest:
        return concatenated({"max(", textOf(node.operands[0]), ", ", textOf(node.operands[1]), ")"});
    default:
        return concatenated(
            {"(", textOf(node.operands[0]), " ", node.op, " ", textOf(node.operands[1]), ")"});
    }
}

/// The processor would fault, or the value would hang on what a comparison with NaN says of a maximum.
struct NotComparable
{};

ModelValue required(std::optional<ModelValue> value)
{
    if (!value)
        throw NotComparable();
    return std::move(*value);
}

/// Evaluates a tree and changes the variables. Of two operands the right one comes first, but for a comma.
ModelValue valueOf(const Node& node, std::vector<ModelValue>& variables)
{
    const auto operand = [&](std::size_t place) { return valueOf(node.operands[place], variables); };
    ModelValue* variable = &variables[node.variable];
    switch (node.kind) {
    case Node::Kind::literal:
        return node.literal;
    case Node::Kind::variable:
        return *variable;
    case Node::Kind::unary:
        return applyUnary(node.op, operand(0));
    case Node::Kind::comma: {
        operand(0);
        return operand(1);
    }
    case Node::Kind::assignment: {
        const ModelValue right = operand(0);
        return *variable = required(applyAssignment(node.op, *variable, right));
    }
    case Node::Kind::prefix:
        return *variable = applyIncDec(node.op, *variable);
    case Node::Kind::suffix:
        return std::exchange(*variable, applyIncDec(node.op, *variable));
    case Node::Kind::binary: {
        const ModelValue right = operand(1);
        const ModelValue left = operand(0);
        return required(applyBinary(node.op, left, right));
    }
    case Node::Kind::largest: {
        const ModelValue right = operand(1);
        const ModelValue left = operand(0);
        if (printedText(left) == "nan" || printedText(right) == "nan" || left == right)
            throw NotComparable();
        return std::get<bool>(required(applyBinary("<", left, right))) ? right : left;
    }
    }
    throw NotComparable();
}

TEST(RandomTrees, EvaluateAsAnEvaluatorOfTheirOwnDoes)
{
    Random random(11);
    int compared = 0;
    for (int round = 0; round < 4000; ++round) {
        std::vector<ModelValue> variables;
        std::string source;
        for (const char letter : treeLetters)
            for (int i = 0; i < 2; ++i) {
                variables.push_back(anyOf(interestingValues(letter), random));
                source += declarationOf(nameOf(variables.size() - 1), variables.back());
            }

        const Node tree = TreeMaker(random, variables).make(anyOf(treeLetters, random), 5);
        source += concatenated({"print(", textOf(tree), "); "});
        for (std::size_t i = 0; i < variables.size(); ++i)
            source += concatenated({"print(", nameOf(i), "); "});

        std::vector<std::string> expected;
        try {
            expected.push_back(printedText(valueOf(tree, variables)));
        } catch (const NotComparable&) {
            continue;
        }
        for (const ModelValue& variable : variables)
            expected.push_back(printedText(variable));

        std::vector<std::string> lines = printedBy(source);
        for (std::string& line : lines)
            if (line == "-nan")
                line = "nan";
        ASSERT_EQ(lines, expected) << source;
        ++compared;
    }
    EXPECT_GT(compared, 2000);
}

} // namespace
