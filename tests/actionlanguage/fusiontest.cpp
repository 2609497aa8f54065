// Fused nodes and plain ones: one language.

#include "actionlanguage/buildrules.h"
#include "actionlanguage/fusion/divisor.h"
#include "actionlanguage/linker.h"
#include "actionlanguage/runtime/statements.h"
#include "languagetester.h"
#include "programmaker.h"
#include "support/recordinginterface.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace {

const BuildRules& rules()
{
    static const BuildRules shared((FunctionRules()));
    return shared;
}

/// A NaN may differ in its sign, which nothing prescribes.
std::string withoutSignOfNan(std::string text)
{
    for (auto place = text.find("-nan"); place != std::string::npos; place = text.find("-nan"))
        text.erase(place, 1);
    return text;
}

std::string textOf(const LinkedVariable& variable)
{
    return variable.visit([]<class T>(const std::shared_ptr<T>& storage) -> std::string {
        if constexpr (std::is_same_v<T, std::string>)
            return withoutSignOfNan(*storage);
        else if constexpr (std::is_same_v<T, double>)
            return *storage != *storage ? "nan" : std::to_string(std::bit_cast<std::uint64_t>(*storage));
        else
            return std::to_string(*storage);
    });
}

/// Everything that two runs of a compiled program, one behind the other, leave to see.
std::vector<std::string> traceOf(const JsonValue& compiled, LinkedNodes nodes)
{
    LinkerActual linker(rules(), nodes);
    const LinkedStatements program = linker.linkProgram(compiled);
    RecordingInterface recorder;
    program.execute(recorder);
    program.execute(recorder);
    std::vector<std::string> trace;
    for (std::string& line : recorder.lines)
        trace.push_back(withoutSignOfNan(std::move(line)));
    for (const JsonMember& variable : compiled.member("variables").asObject())
        trace.push_back(variable.key + " is " + textOf(linker.findVariable(variable.key)));
    return trace;
}

bool differs(const std::string& source)
{
    const CompileResult compiled = languageBuilder().compileStatements(source);
    return traceOf(compiled.value(), LinkedNodes::fused) != traceOf(compiled.value(), LinkedNodes::plain);
}

/// A smallest program that still differs: without any part of it, it does not, or does not compile.
Program smallest(Program program)
{
    const auto stillDiffers = [](const Program& smaller) {
        try {
            return differs(sourceOf(smaller));
        } catch (const std::exception&) {
            return false;
        }
    };
    while (true) {
        const std::vector<Program> candidates = shrunk(program);
        const auto found = std::ranges::find_if(candidates, stillDiffers);
        if (found == candidates.end())
            return program;
        program = *found;
    }
}

/// Four series, so that a run of all tests has them side by side.
class RandomPrograms : public testing::TestWithParam<unsigned>
{};

TEST_P(RandomPrograms, DoTheSameFusedAndPlain)
{
    std::mt19937 random(GetParam());
    for (int round = 0; round < 500; ++round) {
        const Program program = makeProgram(random);
        const std::string source = sourceOf(program);
        ASSERT_EQ(outcomeOf(source), "compiled") << source;
        ASSERT_FALSE(differs(source)) << sourceOf(smallest(program));
    }
}

INSTANTIATE_TEST_SUITE_P(Seed, RandomPrograms, testing::Values(23, 24, 25, 26));

TEST(ARandomProgram, ShrinksToWhatItNeeds)
{
    std::mt19937 random(5);
    const Program program = makeProgram(random);
    const std::size_t lines = program.size();
    const std::vector<Program> smaller = shrunk(program);
    EXPECT_GE(smaller.size(), lines);
    for (const Program& one : smaller)
        EXPECT_LT(sourceOf(one).size(), sourceOf(program).size());
}

/// What the only statement of a text links to.
template <class Plain>
bool linksTo(std::string_view source, LinkedNodes nodes)
{
    const CompileResult compiled = languageBuilder().compileStatements(source);
    LinkerActual linker(rules(), nodes);
    auto all = linker.linkProgram(compiled.value()).release();
    AbstractStatementImpl& last = all.back().node();
    return typeid(last) == typeid(Plain);
}

TEST(TheLinker, PutsFusedNodesInPlaceOfPlainOnesUnlessToldNotTo)
{
    constexpr std::string_view branch = "int x = 1; if (x < 2) x = 3;";
    constexpr std::string_view loop = "for (int i = 0; i < 3; ++i) ;";
    constexpr std::string_view assignment = "int x = 1; x = x + 1;";
    EXPECT_TRUE(linksTo<IfStatement>(branch, LinkedNodes::plain));
    EXPECT_FALSE(linksTo<IfStatement>(branch, LinkedNodes::fused));
    EXPECT_TRUE(linksTo<ForStatement>(loop, LinkedNodes::plain));
    EXPECT_FALSE(linksTo<ForStatement>(loop, LinkedNodes::fused));
    EXPECT_TRUE(linksTo<ExpressionStatement>(assignment, LinkedNodes::plain));
    EXPECT_FALSE(linksTo<ExpressionStatement>(assignment, LinkedNodes::fused));
}

TEST(AFusedOperator, ReadsTheVariableOnItsLeftAfterTheRightSideChangedIt)
{
    EXPECT_EQ(printedBy("int x = 1; print(x + (x = 10)); x = x - (x = 3); print(x);"),
              (std::vector<std::string>{"20", "0"}));
}

TEST(AFusedOperator, ReadsTheVariableOnItsRightBeforeTheLeftSideChangesIt)
{
    EXPECT_EQ(printedBy("int x = 1; print((x = 10) + x); x = (x = 3) - x; print(x);"),
              (std::vector<std::string>{"11", "-7"}));
}

TEST(ADivisor, DividesAsTheProcessorDoes)
{
    using Limits = std::numeric_limits<std::int32_t>;
    std::vector<std::int32_t> values{0,  1,   -1,  2,     -2,    3,       -3,      7,
                                     10, -10, 641, 65535, 65536, 1000003, -1000003};
    for (int shift = 2; shift < 31; ++shift)
        for (const std::int32_t near : {-1, 0, 1})
            values.insert(values.end(), {(1 << shift) + near, -(1 << shift) + near});
    values.insert(values.end(), {Limits::max(), Limits::max() - 1, Limits::min(), Limits::min() + 1});
    std::mt19937 random(3);
    for (int count = 0; count < 1000; ++count)
        values.push_back(static_cast<std::int32_t>(random()));
    for (const std::int32_t right : values) {
        if (!Divisor::fits(right))
            continue;
        const Divisor divisor(right);
        for (const std::int32_t left : values) {
            ASSERT_EQ(divisor.quotientOf(left), left / right) << left << " / " << right;
            ASSERT_EQ(divisor.remainderOf(left), left % right) << left << " % " << right;
        }
    }
}

TEST(ADivisor, IsNotMadeOfWhatFaultsOrOverflows)
{
    for (const std::int32_t value : {0, 1, -1, std::numeric_limits<std::int32_t>::min()})
        EXPECT_FALSE(Divisor::fits(value)) << value;
    EXPECT_TRUE(Divisor::fits(2));
    EXPECT_TRUE(Divisor::fits(std::numeric_limits<std::int32_t>::max()));
}

} // namespace
