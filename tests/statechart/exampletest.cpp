#include "statechart/check/definitioncheck.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/definitions.h"
#include "statechart/examples.h"
#include "testfolders.h"

#include <functional>
#include <set>

namespace {

class ExampleCharts : public testing::TestWithParam<std::filesystem::path>
{};

TEST_P(ExampleCharts, HaveNoFindings)
{
    const std::string definition = readText(GetParam());
    for (const Finding& finding : checkDefinition(definition))
        ADD_FAILURE() << finding.line << ':' << finding.column << ": " << finding.text;
}

/// A compiled device whose texts are linked and whose states are gathered on the way.
class LinkedDevice
{
public:
    explicit LinkedDevice(const JsonValue& device) { linkStates(device.member("states").asObject()); }

    bool hasState(const std::string& identifier) const { return m_states.contains(identifier); }

    void linkTransition(const JsonValue& transition) const
    {
        forEachText(transition, "actions", [&](const JsonValue& text) { m_builder->linkStatements(text); });
        forEachText(transition, "conditions", [&](const JsonValue& text) { m_builder->linkCondition(text); });
        if (transition.has("wakeTime"))
            m_builder->linkExpression(transition.member("wakeTime"));
    }

private:
    void linkStates(const JsonObject& states)
    {
        for (const auto& [identifier, state] : states) {
            EXPECT_TRUE(m_states.insert(identifier).second) << identifier;
            for (const char* key : {"onEntry", "onExit"})
                forEachText(state, key, [&](const JsonValue& text) { m_builder->linkStatements(text); });
            if (state.has("substates"))
                linkStates(state.member("substates").asObject());
        }
    }

    static void forEachText(const JsonValue& owner, const char* key,
                            const std::function<void(const JsonValue&)>& link)
    {
        if (!owner.has(key))
            return;
        for (const JsonValue& text : owner.member(key).asArray())
            link(text);
    }

    std::shared_ptr<CodeBuilder> m_builder = deviceCodeBuilder();
    std::set<std::string> m_states;
};

TEST_P(ExampleCharts, LinkAndNameStatesThatThereAre)
{
    const JsonValue device =
        compileDeviceStateChart(jsonOf(readText(GetParam())).asObject(), deviceCodeBuilder());
    const LinkedDevice linked(device);
    for (const auto& [identifier, transition] : device.member("transitions").asObject()) {
        EXPECT_TRUE(linked.hasState(transition.member("tgt").asString())) << identifier;
        EXPECT_NO_THROW(linked.linkTransition(transition)) << identifier;
        const bool wakes = transition.has("event") && transition.member("event").equals("wake");
        EXPECT_EQ(transition.has("wakeTime"), wakes) << identifier;
    }
}

std::string folderName(const testing::TestParamInfo<std::filesystem::path>& info)
{
    std::string name = info.param.parent_path().filename().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Folders, ExampleCharts, testing::ValuesIn(definitionsUnder("charts")), folderName);

TEST(ExampleChartsWithErrors, AreShownWithTheErrorAndItsWarnings)
{
    const std::string definition =
        readText(std::filesystem::path(PROJECT_FOLDER) /
                 "examples/charts-with-errors/undeclared-variable/definition.json");
    const std::vector<Finding> findings = checkDefinition(definition);
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].severity, Finding::Severity::warning);
    EXPECT_EQ(findings[0].text, R"('\:': unrecognised character escape sequence)");
    EXPECT_EQ(findings[0].path, R"(states["off"].onEntry.[0])");
    EXPECT_EQ(findings[1].severity, Finding::Severity::warning);
    EXPECT_EQ(findings[1].text, "'brightness' is not used");
    EXPECT_EQ(findings[2].severity, Finding::Severity::error);
    EXPECT_EQ(findings[2].text, "'brightnes': undeclared identifier");
    EXPECT_EQ(findings[2].path, R"(states["on"].onEntry.[1])");
    EXPECT_EQ(findings[2].line, 18u);
    EXPECT_EQ(findings[2].sourceLine.substr(findings[2].column - 1, 9), "brightnes");
}

} // namespace
