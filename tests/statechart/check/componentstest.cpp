#include "statechart/check/components.h"

#include <gtest/gtest.h>

namespace {

using Components = std::vector<std::vector<std::size_t>>;

TEST(ComponentsWithWaysRound, AreNoneInAGraphWithoutRounds)
{
    EXPECT_EQ(componentsWithWaysRound({}), Components{});
    EXPECT_EQ(componentsWithWaysRound({{1, 2}, {2}, {}}), Components{});
}

TEST(ComponentsWithWaysRound, AreNodesThatLeadToEachOther)
{
    const GraphEdges edges{{1}, {2}, {0, 3}, {4}, {3}, {5}, {0}};
    EXPECT_EQ(componentsWithWaysRound(edges), (Components{{3, 4}, {0, 1, 2}, {5}}));
}

TEST(ComponentsWithWaysRound, AreFoundHoweverLongTheyAre)
{
    constexpr std::size_t count = 200'000;
    GraphEdges edges(count);
    for (std::size_t i = 0; i < count; ++i)
        edges[i].push_back((i + 1) % count);
    const Components found = componentsWithWaysRound(edges);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].size(), count);
}

} // namespace
