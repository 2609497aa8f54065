#include "simulator/simulationtime.h"

#include <limits>

namespace {

std::string refusalOf(const auto& function)
{
    try {
        function();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(SimulationTime, IsWrittenExactlyWithASuffix)
{
    const std::pair<Ticks, const char*> times[] = {
        {0, "0"},
        {1, "1f"},
        {10, "10f"},
        {999, "999f"},
        {1000, "1p"},
        {1001, "1.001p"},
        {12'500'000, "12.5n"},
        {104'166'667'000, "104.166667u"},
        {500'000'000'000, "500u"},
        {1'000'000'000'000'000, "1"},
        {1'500'000'000'000'000, "1.5"},
        {140'000'000'000'000'000, "140"},
        {1'000'000'000'000'001, "1.000000000000001"},
        {std::numeric_limits<Ticks>::max(), "9223.372036854775807"},
    };
    for (const auto& [ticks, text] : times)
        EXPECT_EQ(timeText(ticks, {}), text);
    EXPECT_EQ(timeText(1500, TimeResolution::fromText("1n")), "1.5u");
    EXPECT_EQ(timeText(86'400, TimeResolution::fromText("1")), "86400");
}

TEST(SimulationTime, IsTheNearestTick)
{
    const TimeResolution femto;
    EXPECT_EQ(femto.ticks(1e-8, "x"), 10'000'000);
    EXPECT_EQ(femto.ticks(1e-9 + 2e-9, "x"), 3'000'000);
    EXPECT_EQ(femto.ticks(0.4e-15, "x"), 0);
    EXPECT_EQ(TimeResolution::fromText("1u").ticks(1.6e-6, "x"), 2);
    EXPECT_EQ(femto.seconds(12'500'000), 1.25e-8);
}

TEST(SimulationTime, HasAResolutionThatIsAPowerOfTen)
{
    EXPECT_EQ(TimeResolution::fromText("1f"), TimeResolution());
    EXPECT_EQ(TimeResolution::fromText("1f").exponent(), -15);
    EXPECT_EQ(TimeResolution::fromText("10p").exponent(), -11);
    EXPECT_EQ(TimeResolution::fromText("1").exponent(), 0);
    for (const char* text : {"2n", "1a", "10", "0", "-1n"})
        EXPECT_EQ(refusalOf([&] { TimeResolution::fromText(text); }),
                  std::string("the resolution must be a power of ten from 1f to 1 second, not '") + text +
                      "'");
    EXPECT_EQ(refusalOf([] { TimeResolution::fromText("fast"); }),
              "the resolution must be a power of ten from 1f to 1 second, not 'fast'");
}

TEST(SimulationTime, RefusesWhatIsNoTime)
{
    const TimeResolution femto;
    EXPECT_EQ(refusalOf([&] { femto.ticks(-1e-20, "the delay"); }), "the delay is negative");
    EXPECT_EQ(refusalOf([&] { femto.ticks(std::numeric_limits<double>::quiet_NaN(), "the delay"); }),
              "the delay is no number");
    for (const double seconds : {1e4, 1e300, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(refusalOf([&] { femto.ticks(seconds, "the delay"); }),
                  "the delay is too long for ticks of 1f (--resolution gives longer ones)");
}
