#include "actionlanguage/analysis/constantfolding.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/codebuilder.h"

#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace {

struct Folded
{
    const char* name;
    const char* expression;
    std::optional<std::int32_t> value;
};

void PrintTo(const Folded& row, std::ostream* output)
{
    *output << row.name;
}

JsonValue statementsOf(const std::string& source)
{
    const CodeBuilder builder(std::make_shared<const BuildRules>(FunctionRules()));
    CompileResult result = builder.compileStatements(source);
    return std::move(result).value();
}

/// The expression of the last statement.
const SourceNode& lastOf(const SourceNode& tree)
{
    return tree.children.back().children.front();
}

class FoldedInts : public testing::TestWithParam<Folded>
{};

TEST_P(FoldedInts, AreThoseOfARun)
{
    const std::string source = std::string("int i = 1; int64_t l = 1; i; l; ") + GetParam().expression + ";";
    const JsonValue form = statementsOf(source);
    const SourceNode tree = sourceTreeOfStatements(form, source);
    EXPECT_EQ(ConstantFolding().intOf(lastOf(tree)), GetParam().value);
}

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

const std::vector<Folded> ints{
    {"aLiteral", "7", 7},
    {"aSum", "2 + 2", 4},
    {"aNegativeNumber", "-1", -1},
    {"theSmallest", "-2147483647 - 1", smallest},
    {"aSumThatGoesRound", "2147483647 + 1", smallest},
    {"aProductThatGoesRound", "65536 * 65536", 0},
    {"aShift", "1 << 4", 16},
    {"aShiftToTheRight", "-16 >> 2", -4},
    {"aQuotient", "7 / 2", 3},
    {"aRemainder", "-7 % 3", -1},
    {"aQuotientByZero", "7 / 0", std::nullopt},
    {"aRemainderByZero", "7 % (1 - 1)", std::nullopt},
    {"theSmallestByMinusOne", "(-2147483647 - 1) / (-1)", std::nullopt},
    {"theRemainderOfTheSmallestByMinusOne", "(-2147483647 - 1) % (0 - 1)", std::nullopt},
    {"aQuotientOfAQuotientByZero", "1 / (1 / (1 / 0))", std::nullopt},
    {"aVariable", "i", std::nullopt},
    {"aSumWithAVariable", "i + 1", std::nullopt},
    {"aVariableOf64Bits", "l", std::nullopt},
    {"aDouble", "1.0", std::nullopt},
    {"aTruth", "true", std::nullopt},
};
INSTANTIATE_TEST_SUITE_P(Expressions, FoldedInts, testing::ValuesIn(ints));

struct FoldedTruth
{
    const char* name;
    const char* condition;
    std::optional<bool> truth;
};

void PrintTo(const FoldedTruth& row, std::ostream* output)
{
    *output << row.name;
}

class FoldedTruths : public testing::TestWithParam<FoldedTruth>
{};

TEST_P(FoldedTruths, AreThoseOfARun)
{
    const CodeBuilder builder(std::make_shared<const BuildRules>(FunctionRules()));
    const std::string source = GetParam().condition;
    CompileResult result = builder.compileCondition(source);
    const JsonValue form = std::move(result).value();
    const SourceNode tree = sourceTreeOfExpression(form, DataType::boolean, source);
    EXPECT_EQ(ConstantFolding().truthOf(tree), GetParam().truth);
}

const std::vector<FoldedTruth> truths{
    {"aComparison", "1 < 2", true},
    {"aNumber", "0", false},
    {"aNegation", "!(2 == 2)", false},
    {"bothSides", "1 < 2 && 3 < 2", false},
    {"eitherSide", "1 < 2 || 3 < 2", true},
    {"aFunction", "sin(0.0) == 0.0", true},
    {"aDivisionThatWouldFault", "1 / 0 == 1", std::nullopt},
    {"aSideThatDecidesBesideOneThatWouldFault", "1 / 0 == 1 || true", true},
    {"aSumThatGoesRound", "2147483647 + 1 < 0", true},
};
INSTANTIATE_TEST_SUITE_P(Conditions, FoldedTruths, testing::ValuesIn(truths));

TEST(FoldedLiterals, StandInForExpressionsOfTheirType)
{
    const auto lessThanZero = [](DataType type, double value) {
        const JsonValue form = JsonObject{
            {"rule", "binop"},
            {"op", "<"},
            {"lhs", JsonObject{{"type", typeName(type)}, {"expr", ConstantFolding::literal(type, value)}}},
            {"rhs", JsonObject{{"type", typeName(type)}, {"expr", ConstantFolding::literal(type, 0.0)}}},
            {"type", "bool"}};
        return ConstantFolding().truthOf(sourceTreeOfExpression(form, DataType::boolean, ""));
    };
    for (const DataType type : {DataType::integer, DataType::integer64, DataType::real}) {
        EXPECT_EQ(lessThanZero(type, -2.0), true) << typeName(type);
        EXPECT_EQ(lessThanZero(type, 2.0), false) << typeName(type);
    }
    EXPECT_EQ(lessThanZero(DataType::unsigned64, 2.0), false);
    EXPECT_TRUE(ConstantFolding::literal(DataType::boolean, 1.0).asBool());
}

TEST(ZeroVariables, AreThoseThatGetOneValueAndThatOneZero)
{
    const std::string source = "const int a = 0; int b = a * 2, c = 0; c = 1; int64_t d = 0; int e = 0; ++e; "
                               "int f = 1; uint64_t g; g = 0; int h = 0; h += 1; f; b; d; g;";
    const JsonValue form = statementsOf(source);
    const SourceNode tree = sourceTreeOfStatements(form, source);
    EXPECT_EQ(ConstantFolding().zeroVariablesOf(tree), (VariableIds{"v_0", "v_1", "v_3", "v_6"}));
}

} // namespace
