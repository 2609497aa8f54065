#include "grammar/searchexpression.h"

#include "support/qtcore/hostlog.h"

#include <QRegularExpression>
#include <gtest/gtest.h>
#include <random>

using namespace Halvorin::TextMate;

namespace {

/// Expressions that start in every way, and lines of the characters that they speak of.
const QStringList atoms{
    QStringLiteral("a"),           QStringLiteral("[aB]"),       QStringLiteral("[kK]"),
    QStringLiteral("(?i:k)"),      QStringLiteral("(?i)s"),      QStringLiteral("\\x{e9}"),
    QStringLiteral("(?i)\\x{e9}"), QStringLiteral("\\x{1F600}"), QStringLiteral("[^a]"),
    QStringLiteral("(?<!a)b"),     QStringLiteral("(?=b)"),      QStringLiteral("(?:ab|B)"),
    QStringLiteral("\\w"),         QStringLiteral("\\W+"),       QStringLiteral("x?"),
    QStringLiteral("^"),           QStringLiteral("$"),          QStringLiteral(".*b"),
    QStringLiteral("(a)|(b)"),     QStringLiteral("\\bk"),       QStringLiteral("[[:upper:]]"),
    QStringLiteral("\\x{17f}"),    QStringLiteral("(?x) b # b"), QStringLiteral("[\\x{100}-\\x{200}]")};

QString randomLine(std::mt19937& random)
{
    static const QString characters = QStringLiteral("aAbBkKsSx \u00e9\u00c9\u017f\u212a\u0150");
    QString line;
    for (auto left = random() % 8; left > 0; --left) {
        const auto index = random() % static_cast<unsigned>(characters.size() + 1);
        if (index == static_cast<unsigned>(characters.size()))
            line += QStringLiteral("\U0001F600");
        else
            line += characters.at(static_cast<int>(index));
    }
    return line + QLatin1Char('\n');
}

} // namespace

TEST(SearchExpression, FindsWhatARegularExpressionOfQtFinds)
{
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        QString pattern;
        for (auto left = 1 + random() % 3; left > 0; --left)
            pattern += atoms.at(static_cast<int>(random() % static_cast<unsigned>(atoms.size())));
        const SearchExpression expression(pattern);
        const QString line = randomLine(random);
        const QRegularExpressionMatch expected = QRegularExpression(pattern).match(line);
        Match match;
        ASSERT_EQ(expression.match(line, 0, match), expected.hasMatch()) << pattern.toStdString();
        ASSERT_EQ(expression.find(line, 0).start, expected.capturedStart()) << pattern.toStdString();
        if (!expected.hasMatch())
            continue;
        // never passed over because of the characters of the line
        ASSERT_TRUE(expression.canMatch(UnitSet(line)))
            << pattern.toStdString() << " in " << line.toStdString();
        ASSERT_EQ(match.lastCapturedIndex(), expected.lastCapturedIndex());
        for (int group = 0; group <= match.lastCapturedIndex(); ++group) {
            ASSERT_EQ(match.capturedStart(group), expected.capturedStart(group)) << pattern.toStdString();
            ASSERT_EQ(match.capturedLength(group), expected.capturedLength(group)) << pattern.toStdString();
        }
    }
}

TEST(SearchExpression, PassesOverALineWithoutItsCharacters)
{
    const SearchExpression expression(QStringLiteral("[bB]x"));
    EXPECT_FALSE(expression.canMatch(UnitSet(QStringLiteral("ax"))));
    EXPECT_FALSE(expression.canMatch(UnitSet(QStringLiteral("Bb"))));
    EXPECT_TRUE(expression.canMatch(UnitSet(QStringLiteral("xB"))));
}

TEST(SearchExpression, NeverMatchesWhenItIsNotValid)
{
    const SearchExpression expression(QStringLiteral("(a"));
    Match match;
    EXPECT_FALSE(expression.isValid());
    EXPECT_EQ(expression.find(QStringLiteral("(a"), 0).start, -1);
    EXPECT_FALSE(expression.match(QStringLiteral("(a"), 0, match));
    EXPECT_FALSE(expression.canMatch(UnitSet(QStringLiteral("(a"))));
}

TEST(SearchExpression, SaysOnceThatALimitWasReached)
{
    const HostLog log;
    const SearchExpression expression(QStringLiteral("(?:a|aa)+$(?<=c)"));
    const QString line(5'000, QLatin1Char('a'));
    EXPECT_TRUE(expression.find(line, 0).isGivenUp);
    EXPECT_TRUE(expression.find(line, 1).isGivenUp);
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"diagnostic: grammar: an expression was given up on a long line: "
                                       "(?:a|aa)+$(?<=c)"});
}

TEST(SearchExpression, CanBeRepeatedUnlessItSteersTheSearch)
{
    EXPECT_TRUE(SearchExpression(QStringLiteral("a(?=b)")).isRepeatable());
    EXPECT_TRUE(SearchExpression(QStringLiteral("a\\Kb")).isRepeatable());
    EXPECT_FALSE(SearchExpression(QStringLiteral("\\Ga")).isRepeatable());
    EXPECT_FALSE(SearchExpression(QStringLiteral("(*COMMIT)a")).isRepeatable());
}

TEST(SearchExpression, SaysWhereAMatchBeganThatMovedItsStart)
{
    const SearchExpression expression(QStringLiteral("a+\\Kb"));
    const SearchExpression::Hit hit = expression.find(QStringLiteral("xaab"), 0);
    EXPECT_EQ(hit.start, 3);
    EXPECT_EQ(hit.attempt, 1);
}

TEST(SearchExpression, DoesNotMatchInFrontOfThePositionNorBehindItsEnd)
{
    // written in a look-behind the library refuses to move the start, called from one it does not
    const SearchExpression back(QStringLiteral("(?<=(?1))(?(DEFINE)(\\Ka))"));
    const SearchExpression forth(QStringLiteral("(?=(?1))a(?(DEFINE)(aa\\K))"));
    ASSERT_TRUE(back.isValid() && forth.isValid());
    Match match;
    EXPECT_FALSE(back.match(QStringLiteral("aaaa"), 1, match));
    EXPECT_EQ(forth.find(QStringLiteral("aaaa"), 0).start, -1);
}
