#include "highlight/colouredruns.h"

#include <random>

namespace {

using Halvorin::TextMate::Token;

/// A token of a scope that the table has, or of "source" alone for an empty one.
Token token(int start, int length, const char* scope)
{
    QStringList scopes{QStringLiteral("source")};
    if (*scope != '\0')
        scopes.append(QString::fromUtf8(scope));
    return {start, length, scopes};
}

using Texts = std::vector<std::string>;

/// Each run as "START-END ROW".
Texts runsOf(const std::vector<Token>& tokens, int length)
{
    ColourScheme scheme;
    Texts texts;
    for (const ColouredRun& run : colouredRuns(tokens, length, scheme))
        texts.push_back(std::to_string(run.start) + "-" + std::to_string(run.end) + " " +
                        (run.rule != nullptr ? std::string(run.rule->scope) : "plain"));
    return texts;
}

} // namespace

TEST(ColouredRuns, ArePlainWhereNoTokenIs)
{
    EXPECT_EQ(runsOf({}, 0), Texts{});
    EXPECT_EQ(runsOf({}, 4), Texts{"0-4 plain"});
    EXPECT_EQ(runsOf({token(1, 2, "string"), token(5, 1, "")}, 7),
              (Texts{"0-1 plain", "1-3 string", "3-7 plain"}));
}

TEST(ColouredRuns, AreOfTheLaterTokenWhereTwoOverlap)
{
    EXPECT_EQ(runsOf({token(0, 6, "string"), token(2, 2, "comment")}, 6),
              (Texts{"0-2 string", "2-4 comment", "4-6 string"}));
    EXPECT_EQ(runsOf({token(0, 6, "string"), token(0, 2, "comment")}, 6),
              (Texts{"0-2 comment", "2-6 string"}));
    EXPECT_EQ(runsOf({token(0, 2, "string"), token(0, 6, "comment")}, 6), Texts{"0-6 comment"});
    EXPECT_EQ(runsOf({token(0, 4, "string"), token(2, 4, "comment")}, 6),
              (Texts{"0-2 string", "2-6 comment"}));
    EXPECT_EQ(runsOf({token(0, 6, "string"), token(2, 2, "")}, 6),
              (Texts{"0-2 string", "2-4 plain", "4-6 string"}));
}

TEST(ColouredRuns, AreJoinedWhereTheyLookTheSame)
{
    EXPECT_EQ(runsOf({token(0, 2, "string.a"), token(2, 2, "string.b")}, 4), Texts{"0-4 string"});
}

TEST(ColouredRuns, EndWithTheLine)
{
    EXPECT_EQ(runsOf({token(0, 3, "string"), token(3, 1, "comment")}, 3), Texts{"0-3 string"});
    EXPECT_EQ(runsOf({token(1, 9, "string"), token(8, 1, "comment")}, 3), (Texts{"0-1 plain", "1-3 string"}));
    EXPECT_EQ(runsOf({token(1, 0, "string")}, 3), Texts{"0-3 plain"});
}

TEST(ColouredRuns, AreWhatLayingColumnAfterColumnGives)
{
    const std::vector<const char*> scopes{"", "string", "comment", "keyword", "storage"};
    std::minstd_rand random(1);
    const auto below = [&random](std::size_t limit) { return static_cast<int>(random() % limit); };
    for (int round = 0; round < 2000; ++round) {
        const int length = below(20);
        std::vector<Token> tokens;
        for (int count = below(12); count > 0; --count)
            tokens.push_back(
                token(below(22), below(12), scopes[static_cast<std::size_t>(below(scopes.size()))]));
        std::ranges::stable_sort(tokens, {}, &Token::start);

        ColourScheme scheme;
        std::vector<const ColourRule*> expected(static_cast<std::size_t>(length));
        for (const Token& each : tokens)
            for (int column = each.start; column < std::min(length, each.start + each.length); ++column)
                expected[static_cast<std::size_t>(column)] = scheme.rule(each.scopes);
        std::vector<const ColourRule*> actual;
        for (const ColouredRun& run : colouredRuns(tokens, length, scheme)) {
            ASSERT_EQ(run.start, static_cast<int>(actual.size()));
            actual.resize(static_cast<std::size_t>(run.end), run.rule);
        }
        ASSERT_EQ(actual, expected) << "round " << round;
    }
}
