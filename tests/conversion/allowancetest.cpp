#include "conversion/core/allowance.h"
#include "conversion/rstconversionlibrary.h"

#include <gtest/gtest.h>

using namespace Halvorin::Text;

namespace {

TEST(Allowance, GivesCharactersAsLongAsItHasSome)
{
    Allowance allowance;
    EXPECT_EQ(allowance.takeCharacters(999'999), 999'999);
    EXPECT_EQ(allowance.takeCharacters(2), 1);
    EXPECT_EQ(allowance.takeCharacters(1), 0);
}

TEST(Allowance, GivesAllCharactersOrNoneAndNoMore)
{
    Allowance allowance;
    EXPECT_TRUE(allowance.takeAllCharacters(1'000'000));
    EXPECT_TRUE(allowance.takeAllCharacters(0));
    EXPECT_FALSE(allowance.takeAllCharacters(1));

    Allowance other;
    EXPECT_FALSE(other.takeAllCharacters(1'000'001));
    EXPECT_FALSE(other.takeAllCharacters(1));
}

TEST(Allowance, CountsAnAttemptBySquareOfItsLength)
{
    Allowance allowance;
    EXPECT_TRUE(allowance.takeAttempt(10'000));
    EXPECT_FALSE(allowance.takeAttempt(1));
}

TEST(Allowance, CountsAShortAttemptByItsSteps)
{
    Allowance allowance;
    for (int attempt = 0; attempt < 100; ++attempt)
        EXPECT_TRUE(allowance.takeAttempt(10));
    EXPECT_FALSE(allowance.takeAttempt(10));
}

/// A simple table of 1,001 columns and 1,000 rows that reach the first of them.
QString wideTable(const char* rule = "=")
{
    const QString column = QString::fromUtf8(rule);
    const QString border = (column + QLatin1Char(' ')).repeated(1'000) + column + QLatin1Char('\n');
    return border + QStringLiteral("a\n").repeated(1'000) + border + QLatin1Char('\n');
}

/// What the allowance has, in cells.
constexpr int cellsThatNothingReaches = 1'000'000 / 9;

TEST(Allowance, IsForAllTablesOfATextTogether)
{
    const RSTConversionLibrary library;
    EXPECT_EQ(library.convertToHTML(wideTable("=") + wideTable("==") + wideTable("==="))
                  .count(QLatin1String("<td>")),
              3 * 1'000 + cellsThatNothingReaches);
}

TEST(Allowance, IsNewForEachText)
{
    const RSTConversionLibrary library;
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(library.convertToHTML(wideTable()).count(QLatin1String("<td>")),
                  1'000 + cellsThatNothingReaches);
}

TEST(Allowance, IsTakenByLinesThatAreRepeatedBetweenBullets)
{
    // 200 lines are 399 characters when they are joined, then 397 and so on
    const auto gap = [](int lines) {
        return QStringLiteral("\u00a0\n").repeated(lines) + QStringLiteral("- a\n");
    };
    const RSTConversionLibrary library;
    const auto paragraphs = [&](const QString& text) {
        return library.convertToHTML(QStringLiteral("- a\n") + text + QLatin1Char('\n'))
            .count(QLatin1String("<p>"));
    };
    EXPECT_EQ(paragraphs(gap(200)), 2 + 200);
    EXPECT_EQ(paragraphs(gap(200).repeated(25)), 1 + 25 + 25 * 200); // 25 * 200 * 200 = 1,000,000
    EXPECT_EQ(paragraphs(gap(200).repeated(25) + gap(2)), 1 + 25 + 25 * 200 + 1 + 1);
}

} // namespace
