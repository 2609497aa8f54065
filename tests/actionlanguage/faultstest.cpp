// Integer division has no test for what the processor refuses: such a division compiles, links, and ends
// the process when it is evaluated.

#include "languagetester.h"
#include "operatormodel.h"
#include "support/recordinginterface.h"

#include <csignal>
#include <limits>
#include <sys/wait.h>

namespace {

/// Ended by the signal itself, or by a sanitizer's handler of that signal.
bool endedByAFault(int status)
{
    return (WIFSIGNALED(status) && WTERMSIG(status) == SIGFPE) ||
           (WIFEXITED(status) && WEXITSTATUS(status) != 0);
}

/// A report of undefined behaviour would come before the processor could fault.
testing::Matcher<const std::string&> noReportOfUndefinedBehaviour()
{
    return testing::Not(testing::HasSubstr("runtime error"));
}

struct Fault
{
    std::string name;
    ModelValue left;
    ModelValue right;
    std::string op;
};

void PrintTo(const Fault& fault, std::ostream* output)
{
    *output << fault.name;
}

std::vector<Fault> faults()
{
    using Int = std::numeric_limits<std::int32_t>;
    using Int64 = std::numeric_limits<std::int64_t>;
    const ModelValue zero = 0;
    const ModelValue minusOne = -1;
    const ModelValue zero64 = std::int64_t{0};
    const ModelValue minusOne64 = std::int64_t{-1};
    const ModelValue zeroUnsigned = std::uint64_t{0};
    return {
        {"int_by_zero", 1, zero, "/"},
        {"int_remainder_by_zero", 1, zero, "%"},
        {"least_int_by_minus_one", Int::min(), minusOne, "/"},
        {"least_int_remainder_by_minus_one", Int::min(), minusOne, "%"},
        {"int64_by_zero", std::int64_t{1}, zero64, "/"},
        {"int64_remainder_by_zero", std::int64_t{1}, zero64, "%"},
        {"int64_by_int_zero", std::int64_t{1}, zero, "/"},
        {"int_by_int64_zero", 1, zero64, "/"},
        {"least_int64_by_minus_one", Int64::min(), minusOne64, "/"},
        {"least_int64_remainder_by_minus_one", Int64::min(), minusOne64, "%"},
        {"least_int64_by_int_minus_one", Int64::min(), minusOne, "/"},
        {"uint64_by_zero", std::uint64_t{1}, zeroUnsigned, "/"},
        {"uint64_remainder_by_zero", std::uint64_t{1}, zeroUnsigned, "%"},
        {"uint64_by_int64_zero", std::uint64_t{1}, zero64, "/"},
        {"int_assigned_by_zero", 1, zero, "/="},
        {"int_remainder_assigned_by_zero", 1, zero, "%="},
        {"least_int_assigned_by_minus_one", Int::min(), minusOne, "/="},
        {"int64_assigned_by_zero", std::int64_t{1}, zero64, "/="},
        {"least_int64_remainder_assigned_by_minus_one", Int64::min(), minusOne64, "%="},
        {"uint64_assigned_by_int_zero", std::uint64_t{1}, zero, "/="},
        {"uint64_remainder_assigned_by_zero", std::uint64_t{1}, zeroUnsigned, "%="},
    };
}

class DivisionDeathTest : public testing::TestWithParam<Fault>
{};

TEST_P(DivisionDeathTest, CompilesAndFaultsWhenItIsEvaluated)
{
    const Fault& fault = GetParam();
    const std::string source =
        declarationOf("a", fault.left) + declarationOf("b", fault.right) + "a " + fault.op + " b;";
    RecordingInterface recorder;
    const CompileResult compiled = languageBuilder().compileStatements(source);
    const LinkedStatements linked = languageBuilder().linkStatements(compiled.value());
    EXPECT_EXIT(linked.execute(recorder), endedByAFault, noReportOfUndefinedBehaviour());
}

INSTANTIATE_TEST_SUITE_P(Divisions, DivisionDeathTest, testing::ValuesIn(faults()),
                         [](const auto& given) { return given.param.name; });

TEST(DivisionOfLiteralsDeathTest, CompilesAndFaultsWhenItIsEvaluated)
{
    RecordingInterface recorder;
    const CompileResult compiled = languageBuilder().compileStatements("1 / 0;");
    const LinkedStatements linked = languageBuilder().linkStatements(compiled.value());
    EXPECT_EXIT(linked.execute(recorder), endedByAFault, noReportOfUndefinedBehaviour());
}

TEST(Division, ThatIsNotEvaluatedDoesNotFault)
{
    EXPECT_EQ(printedBy("if (false) print(1 / 0); print(\"end\");"), std::vector<std::string>{"end"});
}

} // namespace
