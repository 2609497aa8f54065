#include "statechart/definitionpath.h"

namespace {

TEST(DefinitionPath, PutsIdentifiersInBracketsBehindTheirSection)
{
    EXPECT_EQ(definitionPathText({"states", "a", "substates", "b", "transitions", "t", "actions", 2u}),
              R"(states["a"].substates["b"].transitions["t"].actions.[2])");
    EXPECT_EQ(definitionPathText({"inputs", "d", "width"}), R"(inputs["d"].width)");
}

TEST(DefinitionPath, NamesAPlainKeyAsItIs)
{
    EXPECT_EQ(definitionPathText({"start"}), "start");
    EXPECT_EQ(definitionPathText({"states", "a", "onEntry"}), R"(states["a"].onEntry)");
}

TEST(DefinitionPath, TakesAnIdentifierThatSpellsASectionForAnIdentifier)
{
    EXPECT_EQ(definitionPathText({"states", "states", "substates", "inputs", "type"}),
              R"(states["states"].substates["inputs"].type)");
}

TEST(DefinitionPath, IsEmptyForTheWhole)
{
    EXPECT_EQ(definitionPathText({}), "");
}

} // namespace
