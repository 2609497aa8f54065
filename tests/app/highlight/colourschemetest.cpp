#include "highlight/colourscheme.h"

#include "statechart/examples.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

/// The scope in the table that colours a token, or "plain".
std::string rowFor(const QString& scopes)
{
    const ColourRule* rule = ColourScheme().rule(scopes.split(QLatin1Char(' ')));
    return rule != nullptr ? std::string(rule->scope) : "plain";
}

/// From 0 to 1, as the Web Content Accessibility Guidelines have it.
double luminance(const std::string& hexadecimal)
{
    double sum = 0;
    const std::array<double, 3> weights{0.2126, 0.7152, 0.0722};
    for (std::size_t channel = 0; channel < weights.size(); ++channel) {
        int byte = -1;
        const char* digits = hexadecimal.data() + 2 * channel;
        std::from_chars(digits, digits + 2, byte, 16);
        const double part = byte / 255.0;
        sum += weights[channel] * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

} // namespace

TEST(ColourScheme, TakesTheLongestPrefixOfTheInnermostScopeThatHasOne)
{
    const std::vector<std::pair<const char*, const char*>> cases{
        {"source.x keyword.control.x", "keyword"},
        {"source.x keyword.operator.x", "keyword.operator"},
        {"source.x keyword.operator.logical", "keyword.operator.logical"},
        {"source.x keyword", "keyword"},
        {"source.x keywords.x", "plain"},
        {"source.x key", "plain"},
        {"source.x", "plain"},
        {"source.x comment.line.x punctuation.definition.comment.x", "comment"},
        {"source.x comment.line.x keyword.other.codetag.x", "keyword.other.codetag"},
        {"source.x string.quoted.x constant.character.escape.x", "constant.character"},
    };
    for (const auto& [scopes, row] : cases)
        EXPECT_EQ(rowFor(QString::fromUtf8(scopes)), row) << scopes;
}

TEST(ColourScheme, ShowsCodeInsideAStringPlainly)
{
    EXPECT_EQ(rowFor(QStringLiteral("source.x string.x meta.embedded.x")), "plain");
    EXPECT_EQ(rowFor(QStringLiteral("source.x string.x meta.embedded.x constant.numeric.x")),
              "constant.numeric");
    EXPECT_EQ(rowFor(QStringLiteral("source.x string.x meta.embedded.x string.y")), "string");
}

TEST(ColourScheme, HasEachScopeOnceInOrder)
{
    EXPECT_EQ(std::ranges::adjacent_find(colourRules(), std::ranges::greater_equal{}, &ColourRule::scope),
              colourRules().end());
}

TEST(ColourScheme, IsReadableOnBlackAndOnWhite)
{
    for (const ColourRule& rule : colourRules()) {
        if (rule.colour == ColourRule::plain)
            continue;
        ASSERT_GE(rule.colour, 16) << "the first 16 colours follow the terminal's theme";
        const double light = luminance(hexadecimalColour(rule.colour));
        EXPECT_GE((light + 0.05) / 0.05, 4.0) << rule.scope;
        EXPECT_GE(1.05 / (light + 0.05), 4.5) << rule.scope;
    }
}

TEST(ColourScheme, KnowsTheColoursOfTerminals)
{
    const std::vector<std::pair<int, const char*>> colours{{16, "000000"},  {27, "005fff"},  {28, "008700"},
                                                           {131, "af5f5f"}, {231, "ffffff"}, {232, "080808"},
                                                           {242, "6c6c6c"}, {255, "eeeeee"}};
    for (const auto& [number, text] : colours)
        EXPECT_EQ(hexadecimalColour(number), text) << number;
}

TEST(ColourScheme, IsTheTableInTheReference)
{
    std::string expected;
    for (const ColourRule& rule : colourRules()) {
        expected += "| `" + std::string(rule.scope) + "` | ";
        if (rule.colour == ColourRule::plain)
            expected += "plain | |";
        else
            expected += std::to_string(rule.colour) + " `#" + hexadecimalColour(rule.colour) + "` |" +
                        (rule.bold ? " bold |" : " |");
        expected += "\n";
    }
    EXPECT_THAT(readText(PROJECT_FOLDER "/docs/reference/highlight.md"),
                testing::HasSubstr("|---|---|---|\n" + expected + "\n"));
}
