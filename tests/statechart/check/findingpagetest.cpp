#include "statechart/check/findingkind.h"
#include "testfolders.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

TEST(PageOfFindings, HasARowForEveryKindInItsOrder)
{
    std::ifstream stream(std::string(PROJECT_FOLDER) + "/docs/reference/findings.md");
    std::vector<std::string> documented;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("| `"))
            documented.push_back(line.substr(3, line.find('`', 3) - 3));
    }
    std::vector<std::string> names;
    for (const FindingKindInfo& info : findingKinds())
        names.emplace_back(info.name);
    EXPECT_EQ(documented, names);
}

} // namespace
