#include "actionlanguage/analysis/sourcetree.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/codebuilder.h"

#include <gtest/gtest.h>
#include <ostream>

namespace {

const CodeBuilder& builder()
{
    static const CodeBuilder instance(std::make_shared<const BuildRules>(FunctionRules()));
    return instance;
}

const char* wordOf(SourceNodeKind kind)
{
    switch (kind) {
    case SourceNodeKind::literal:
        return "literal";
    case SourceNodeKind::variable:
        return "variable";
    case SourceNodeKind::cast:
        return "cast";
    case SourceNodeKind::binary:
        return "binary";
    case SourceNodeKind::assignment:
        return "assignment";
    case SourceNodeKind::unary:
        return "unary";
    case SourceNodeKind::prefix:
        return "prefix";
    case SourceNodeKind::suffix:
        return "suffix";
    case SourceNodeKind::comma:
        return "comma";
    case SourceNodeKind::call:
        return "call";
    case SourceNodeKind::ifStatement:
        return "if";
    case SourceNodeKind::whileStatement:
        return "while";
    case SourceNodeKind::doStatement:
        return "do";
    case SourceNodeKind::forStatement:
        return "for";
    case SourceNodeKind::expression:
    case SourceNodeKind::block:
    case SourceNodeKind::null:
        break;
    }
    return nullptr;
}

/// A line for each part with a token of its own: "kind type |token| of |extent|".
std::string described(const SourceNode& tree, std::string_view source)
{
    std::string text;
    visitSourceTree(tree, [&](const SourceNode& node) {
        const char* const word = wordOf(node.kind);
        if (word == nullptr)
            return;
        text += word;
        text += ' ';
        text += typeName(node.type);
        for (const SourceSpan& span : {node.token, node.extent}) {
            text += " |";
            text += source.substr(span.position, span.length);
            text += '|';
        }
        text += '\n';
    });
    return text;
}

struct TreeCase
{
    const char* name;
    std::string source;
    std::string expected;
};

void PrintTo(const TreeCase& row, std::ostream* output)
{
    *output << row.name;
}

class SourceTree : public testing::TestWithParam<TreeCase>
{};

TEST_P(SourceTree, KnowsThePlacesOfItsNodes)
{
    const TreeCase& row = GetParam();
    const CompileResult compiled = builder().compileStatements(row.source);
    EXPECT_EQ(described(sourceTreeOfStatements(compiled.value(), row.source), row.source), row.expected);
}

const std::vector<TreeCase> cases{
    {"aCall", R"(print("a\"b");)",
     "call void |print| |print(\"a\\\"b\")|\nliteral string |\"a\\\"b\"| |\"a\\\"b\"|\n"},
    {"declarations", "int a, b = 1, c; a = b;",
     "assignment int |=| |b = 1|\nliteral int |1| |1|\n"
     "assignment int |=| |a = b|\nvariable int |b| |b|\n"},
    {"aDeclarationWithACall", "double d = pow(2, 3), e; e = d;",
     "assignment double |=| |d = pow(2, 3)|\ncall double |pow| |pow(2, 3)|\n"
     "cast double || |2|\nliteral int |2| |2|\ncast double || |3|\nliteral int |3| |3|\n"
     "assignment double |=| |e = d|\nvariable double |d| |d|\n"},
    {"parentheses", "int x = 0; x = ((1) + (2)) * x;",
     "assignment int |=| |x = 0|\nliteral int |0| |0|\n"
     "assignment int |=| |x = ((1) + (2)) * x|\nbinary int |*| |((1) + (2)) * x|\n"
     "binary int |+| |(1) + (2)|\nliteral int |1| |1|\nliteral int |2| |2|\nvariable int |x| |x|\n"},
    {"operatorsOfOneVariable", "int i = 0; i++; --i; i = -i, ~i;",
     "assignment int |=| |i = 0|\nliteral int |0| |0|\nsuffix int |++| |i++|\nprefix int |--| |--i|\n"
     "comma int |,| |i = -i, ~i|\nassignment int |=| |i = -i|\nunary int |-| |-i|\nvariable int |i| |i|\n"
     "unary int |~| |~i|\nvariable int |i| |i|\n"},
    {"branches", "if (true) print(1); else if (2) { ; print('c' == 'd'); }",
     "if void |if| |if (true) print(1); else if (2) { ; print('c' == 'd')|\nliteral bool |true| |true|\n"
     "call void |print| |print(1)|\nliteral int |1| |1|\n"
     "if void |if| |if (2) { ; print('c' == 'd')|\ncast bool || |2|\nliteral int |2| |2|\n"
     "call void |print| |print('c' == 'd')|\nbinary bool |==| |'c' == 'd'|\n"
     "literal char |'c'| |'c'|\nliteral char |'d'| |'d'|\n"},
    {"loops", "for (int i = 0; i < 3; ++i) print(i); while (false) ; do print(1); while (false);",
     "for void |for| |for (int i = 0; i < 3; ++i) print(i)|\nassignment int |=| |i = 0|\nliteral int |0| "
     "|0|\n"
     "binary bool |<| |i < 3|\nvariable int |i| |i|\nliteral int |3| |3|\nprefix int |++| |++i|\n"
     "call void |print| |print(i)|\nvariable int |i| |i|\n"
     "while void |while| |while (false)|\nliteral bool |false| |false|\n"
     "do void |do| |do print(1); while (false)|\ncall void |print| |print(1)|\nliteral int |1| |1|\n"
     "literal bool |false| |false|\n"},
};
INSTANTIATE_TEST_SUITE_P(Statements, SourceTree, testing::ValuesIn(cases));

TEST(SourceTreeOfACondition, IgnoresWhatStandsBehindIt)
{
    const std::string source = "1 < 2, 3";
    const CompileResult compiled = builder().compileCondition(source);
    EXPECT_EQ(described(sourceTreeOfExpression(compiled.value(), DataType::boolean, source), source),
              "binary bool |<| |1 < 2|\nliteral int |1| |1|\nliteral int |2| |2|\n");
}

TEST(SourceTreeOfAnExpression, HasTheCastThatMakesItADouble)
{
    const std::string source = "(3)";
    const CompileResult compiled = builder().compileExpression(source);
    EXPECT_EQ(described(sourceTreeOfExpression(compiled.value(), DataType::real, source), source),
              "cast double || |3|\nliteral int |3| |3|\n");
}

TEST(SourceTreeOfAForeignText, HasPlacesWithinIt)
{
    const CompileResult compiled = builder().compileStatements("int x = 1; print(x + 2);");
    const std::string other = "y";
    const SourceNode tree = sourceTreeOfStatements(compiled.value(), other);
    visitSourceTree(tree, [&](const SourceNode& node) { EXPECT_LE(node.extent.end(), other.size()); });
}

} // namespace
