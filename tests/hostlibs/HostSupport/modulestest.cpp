#include "HostSupport/modules.h"

TEST(LoadedModules, AreThoseOfTheProgramByName)
{
    const auto modules = sp_GetLoadedModules();
    EXPECT_THAT(modules, testing::Contains(testing::StartsWith("libHostSupport.so")));
    EXPECT_THAT(modules, testing::Contains(testing::StartsWith("libHalvCore.so")));
    EXPECT_THAT(modules, testing::Not(testing::Contains("")));
}
