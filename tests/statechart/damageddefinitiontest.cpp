// Definitions that were damaged on their way: a check always ends, with findings that lie in the text.

#include "statechart/check/definitioncheck.h"

#include "actionlanguage/tokens/tokeniser.h"
#include "testfolders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

std::vector<std::string> exampleDefinitions()
{
    std::vector<std::string> definitions;
    const std::filesystem::path root = std::filesystem::path(PROJECT_FOLDER) / "examples/charts";
    for (const auto& entry : std::filesystem::directory_iterator(root)) {
        std::ifstream stream(entry.path() / "definition.json", std::ios::binary);
        definitions.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    std::sort(definitions.begin(), definitions.end());
    return definitions;
}

/// The findings of a text, each of which is worded and lies in it.
std::vector<Finding> findingsOf(const std::string& text)
{
    std::vector<Finding> findings = checkDefinition(text);
    for (const Finding& finding : findings) {
        EXPECT_FALSE(finding.text.empty());
        EXPECT_LE(finding.offset + finding.length, text.size());
    }
    return findings;
}

} // namespace

TEST(DamagedDefinition, ThatIsCutOffAnywhereIsAnError)
{
    for (const std::string& definition : exampleDefinitions()) {
        const std::size_t whole = definition.rfind('}') + 1;
        for (std::size_t length = 0; length < whole; ++length) {
            const std::vector<Finding> findings = findingsOf(definition.substr(0, length));
            ASSERT_EQ(findings.size(), 1u) << length;
            ASSERT_EQ(findings[0].severity, Finding::Severity::error) << length;
            ASSERT_THAT(findings[0].text, testing::StartsWith("invalid JSON '")) << length;
        }
    }
}

TEST(DamagedDefinition, WithFlippedBitsIsFineOrHasFindings)
{
    constexpr int flipsOfEach = 2000;
    std::mt19937 random(20250601);
    for (const std::string& definition : exampleDefinitions()) {
        for (int flip = 0; flip < flipsOfEach; ++flip) {
            std::string damaged = definition;
            for (auto bits = 1 + random() % 3; bits > 0; --bits) {
                char& byte = damaged[random() % damaged.size()];
                byte = static_cast<char>(byte ^ (1 << random() % 8));
            }
            findingsOf(damaged);
            ASSERT_FALSE(HasFailure()) << damaged;
        }
    }
}
