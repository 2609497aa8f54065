#include "statechart/text/engineeringnumber.h"

#include <limits>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

struct NumberCase
{
    std::string_view text;
    std::optional<double> expected; // refused without one
};

void PrintTo(const NumberCase& row, std::ostream* output)
{
    *output << '"' << row.text << '"';
}

class EngineeringNumber : public testing::TestWithParam<NumberCase>
{};

TEST_P(EngineeringNumber, ReadsLeadingNumberAndScale)
{
    const NumberCase& row = GetParam();
    if (row.expected) {
        EXPECT_EQ(parseEngineeringNumber(row.text), *row.expected);
        return;
    }
    try {
        parseEngineeringNumber(row.text);
        FAIL() << "not refused";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "invalid format for number conversion");
    }
}

constexpr std::nullopt_t refused = std::nullopt;

const std::vector<NumberCase> plain{
    {"0", 0.0},      {"1", 1.0},      {"-1.5", -1.5},  {".5", 0.5},           {"-.5", -0.5}, {"1.", 1.0},
    {"1e3", 1000.0}, {"1E-3", 0.001}, {"1e+2", 100.0}, {"0.000000001", 1e-9}, {"-0", -0.0},
};
INSTANTIATE_TEST_SUITE_P(WithoutScale, EngineeringNumber, testing::ValuesIn(plain));

const std::vector<NumberCase> scaled{
    {"1a", 1e-18},        {"1A", 1e-18},   {"1f", 1e-15},     {"1F", 1e-15},      {"1p", 1e-12},
    {"1P", 1e-12},        {"1n", 1e-9},    {"1N", 1e-9},      {"1u", 1e-6},       {"1U", 1e-6},
    {"1m", 1e-3},         {"1M", 1e-3},    {"1k", 1e3},       {"1K", 1e3},        {"1g", 1e9},
    {"1G", 1e9},          {"1t", 1e12},    {"1T", 1e12},      {"1meg", 1e6},      {"1MEG", 1e6},
    {"1mEg", 1e6},        {"1MEGA", 1e6},  {"1me", 1e-3},     {"1mg", 1e-3},      {"1mge", 1e-3},
    {"10pF", 10 * 1e-12}, {"4k7", 4000.0}, {"2.5e3k", 2.5e6}, {"-3u", -3 * 1e-6}, {"0p", 0.0},
    {"1k ", 1000.0},
};
INSTANTIATE_TEST_SUITE_P(WithScale, EngineeringNumber, testing::ValuesIn(scaled));

constexpr double infinity = std::numeric_limits<double>::infinity();

const std::vector<NumberCase> outOfRange{
    {"1e300t", infinity}, {"-1e300T", -infinity}, {"1e303meg", infinity}, {"1e-307a", 0.0}, {"1e308", 1e308},
};
INSTANTIATE_TEST_SUITE_P(ScaledOutOfTheRangeOfADouble, EngineeringNumber, testing::ValuesIn(outOfRange));

const std::vector<NumberCase> wrong{
    {"", refused},      {" 1", refused},     {"+1", refused},     {"-", refused},    {".", refused},
    {"k", refused},     {"3x", refused},     {"1 k", refused},    {"1e", refused},   {"0x10", refused},
    {"inf", refused},   {"-inf", refused},   {"nan", refused},    {"-nan", refused}, {"infinity", refused},
    {"1e400", refused}, {"1e-400", refused}, {"1e400t", refused}, {"1,5", refused},  {"--1", refused},
};
INSTANTIATE_TEST_SUITE_P(Wrong, EngineeringNumber, testing::ValuesIn(wrong));

} // namespace
