#include "statechart/check/definitioncheck.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/definitions.h"
#include "testfolders.h"

#include <fstream>
#include <vector>

namespace {

/// The blocks of a page of the reference that are fenced off as being of a kind.
std::vector<std::string> blocksOf(const std::string& page, const std::string& kind)
{
    std::ifstream stream(std::string(PROJECT_FOLDER) + "/docs/reference/" + page);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    const std::string open = "```" + kind + "\n";
    std::vector<std::string> blocks;
    for (std::size_t start = text.find(open); start != std::string::npos; start = text.find(open, start)) {
        start += open.size();
        const std::size_t end = text.find("```", start);
        blocks.push_back(text.substr(start, end - start));
        start = end;
    }
    return blocks;
}

TEST(Reference, ShowsADefinitionWithoutFindings)
{
    const std::vector<std::string> definitions = blocksOf("definition.md", "json");
    ASSERT_EQ(definitions.size(), 1u);
    EXPECT_TRUE(checkDefinition(definitions[0]).empty());
}

TEST(Reference, ShowsWhatThatDefinitionCompilesTo)
{
    const std::vector<std::string> devices = blocksOf("compiled-device.md", "json");
    ASSERT_EQ(devices.size(), 1u);
    const JsonValue definition = jsonOf(blocksOf("definition.md", "json").at(0));
    const JsonValue device = compileDeviceStateChart(definition.asObject(), deviceCodeBuilder());
    EXPECT_EQ(toString(jsonOf(devices[0])), toString(device));
}

TEST(Reference, ShowsActionsAndConditionsThatCompile)
{
    const std::shared_ptr<CodeBuilder> builder = deviceCodeBuilder();
    for (const std::string& actions : blocksOf("action-language.md", "actions"))
        EXPECT_NO_THROW(builder->linkStatements(builder->compileStatements(actions).value()));
    for (const std::string& condition : blocksOf("action-language.md", "condition"))
        EXPECT_NO_THROW(builder->linkCondition(builder->compileCondition(condition).value()));
    EXPECT_EQ(blocksOf("action-language.md", "actions").size(), 1u);
    EXPECT_EQ(blocksOf("action-language.md", "condition").size(), 1u);
}

} // namespace
