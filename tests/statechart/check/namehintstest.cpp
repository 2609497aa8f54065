#include "statechart/check/namehints.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

std::string hint(std::string_view name, const std::vector<std::string_view>& candidates)
{
    return NameHints().hintFor(name, candidates);
}

TEST(NameHints, NameTheNearest)
{
    EXPECT_EQ(hint("enabel", {"data", "enabled", "enable"}), "; did you mean 'enable'?");
}

TEST(NameHints, CountACharacterThatIsWrongMissingTooManyOrSwapped)
{
    EXPECT_EQ(hint("clack", {"clock"}), "; did you mean 'clock'?");
    EXPECT_EQ(hint("clck", {"clock"}), "; did you mean 'clock'?");
    EXPECT_EQ(hint("cloock", {"clock"}), "; did you mean 'clock'?");
    EXPECT_EQ(hint("clokc", {"clock"}), "; did you mean 'clock'?");
}

TEST(NameHints, TakeTheFirstOfEquallyNearOnes)
{
    EXPECT_EQ(hint("out3", {"out1", "out2"}), "; did you mean 'out1'?");
}

TEST(NameHints, AreEmptyWhenNothingIsNear)
{
    EXPECT_EQ(hint("clk", {"reset", "d"}), "");
    EXPECT_EQ(hint("clk", {}), "");
    EXPECT_EQ(hint("q", {"d", "en"}), "");
    EXPECT_EQ(hint("", {"d"}), "");
}

TEST(NameHints, EndWhenTooMuchHasBeenCompared)
{
    const std::string name(1000, 'a');
    const std::vector<std::string_view> candidates(1, name);
    NameHints hints;
    std::size_t given = 0;
    for (int i = 0; i < 100; ++i)
        given += hints.hintFor(name, candidates).empty() ? 0 : 1;
    EXPECT_EQ(given, 19u);
}

} // namespace
