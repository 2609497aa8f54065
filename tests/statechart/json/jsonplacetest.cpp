#include "statechart/json/jsonplace.h"

#include "support/allocations/allocationcounter.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(JsonPlace, KnowsTheWayToIt)
{
    const JsonPlace list = JsonPlace().below("a").below("onEntry");
    EXPECT_EQ(list.below(2u).path(), (JsonPath{"a", "onEntry", 2u}));
    EXPECT_EQ(list.path(), (JsonPath{"a", "onEntry"}));
    EXPECT_EQ(list.below(2u).outer().path(), list.path());
    EXPECT_EQ(list.segment(), JsonPathSegment("onEntry"));
}

TEST(JsonPlace, IsTheTopWithoutAnyStep)
{
    EXPECT_TRUE(JsonPlace().isTop());
    EXPECT_EQ(JsonPlace().path(), JsonPath());
    EXPECT_FALSE(JsonPlace().below("a").isTop());
    EXPECT_TRUE(JsonPlace().below("a").outer().isTop());
}

TEST(JsonPlace, SharesLongNamesWithThePlacesInside)
{
    const JsonPlace state = JsonPlace().below(std::string(100'000, 'n'));
    const std::size_t before = allocatedBytes();
    std::vector<JsonPlace> places;
    for (std::size_t i = 0; i < 1000; ++i)
        places.push_back(state.below(i));
    EXPECT_LE(allocatedBytes() - before, 500'000u);
}

} // namespace
