#include "conversion/core/regexconversionrule.h"
#include "conversion/paragraphtags.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "conversion/romannumeral.h"
#include "conversion/scanners/expressions.h"
#include "randomtext.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Halvorin::Text;

namespace {

static_assert(!std::is_copy_constructible_v<RSTConversionLibrary> &&
              !std::is_move_constructible_v<RSTConversionLibrary>);
static_assert(!std::is_copy_constructible_v<PythonLSPConversionLibrary> &&
              !std::is_move_constructible_v<PythonLSPConversionLibrary>);

/// Inline rules that show what each has found: by scanners, or by expressions alone.
class InlineRules : public ConversionLibrary
{
public:
    explicit InlineRules(bool byScanners)
    {
        using namespace Expressions;
        for (RuleExpression definition :
             {emphasis(), escape(), linkWithText(), bareLink(), crossReference()}) {
            if (!byScanners)
                definition.find = nullptr;
            const QString name = definition.name.left(1);
            addInlineRule(makeRule(definition, [name](ConversionMatch& match) -> QString {
                const Captures& captures = capturesOf(match);
                return name + QLatin1Char('<') + captures.group(0) + QLatin1Char('|') + captures.group(1) +
                       QLatin1Char('|') + captures.whole() + QLatin1Char('>');
            }));
        }
    }
};

TEST(Conversion, ReplacesInOnePassWhatTheExpressionsReplaceStepByStep)
{
    const InlineRules byScanners(true);
    const InlineRules byExpressions(false);
    RandomText random({QStringLiteral("*"), QStringLiteral("**"), QStringLiteral("`"), QStringLiteral("``"),
                       QStringLiteral("a"), QStringLiteral(" "), QStringLiteral("\\"),
                       QStringLiteral("https://x"), QStringLiteral("<https://y>`_"),
                       QStringLiteral(":ref:`z`"), QStringLiteral(","), QStringLiteral("\U0001F600")});
    for (int count = 0; count < 20'000; ++count) {
        const QString text = random.next(30);
        const std::size_t offset = static_cast<std::size_t>(count % 3);
        if (offset < static_cast<std::size_t>(text.size()) &&
            text.at(static_cast<int>(offset)).isLowSurrogate())
            continue;
        ASSERT_EQ(byScanners.convertInline(text, offset), byExpressions.convertInline(text, offset))
            << text.toStdString();
    }
}

TEST(Conversion, FindsGridTablesWhoseLinesEndWithTwoCharacters)
{
    const RSTConversionLibrary library;
    const int before = Expression::givenUpCount();
    const QString border = QStringLiteral("+---+---+");
    const QString table = border + (QStringLiteral("\r\n| a | b |\r\n") + border).repeated(30);
    EXPECT_EQ(library.convertToHTML(table).count(QLatin1String("<td>")), 60);
    // where nothing closes it, not all ways to read its ends of lines are tried
    EXPECT_TRUE(library.convertToHTML(table + QStringLiteral("\r\nx")).startsWith(QLatin1String("<p>")));
    EXPECT_EQ(Expression::givenUpCount(), before);
}

TEST(Conversion, TakesHalvesOfCharactersInAPartOfAText)
{
    const RSTConversionLibrary library;
    QString text = QStringLiteral("- ab\n\n- c\r");
    text[3] = QChar(0xDC00);
    const QString html = library.convertBlocks(text, 0);
    EXPECT_EQ(html.count(QLatin1String("<li>")), 2) << html.toStdString();
}

TEST(Conversion, ReplacesHalvesOfCharacters)
{
    const RSTConversionLibrary library;
    QString text = QStringLiteral("a\u00e4 **b**");
    text[1] = QChar(0xD800);
    EXPECT_EQ(library.convertToHTML(text), QStringLiteral("<p>a\uFFFD <b>b</b></p>"));
    EXPECT_EQ(library.convertToHTML(QStringLiteral("*\U0001F600* \\\U0001F600")),
              QStringLiteral("<p><i>\U0001F600</i> \U0001F600</p>"));
}

TEST(Conversion, LeavesListsThatNestTooDeepAsTheyStand)
{
    const RSTConversionLibrary library;
    const QString html = library.convertToHTML(QStringLiteral("- ").repeated(20'000) + QLatin1Char('x'));
    EXPECT_EQ(html.count(QLatin1String("<ul")), 200);
    EXPECT_EQ(html.count(QLatin1String("</ul>")), 200);
    EXPECT_TRUE(html.contains(QLatin1String("- - x</li>")));
}

TEST(Conversion, FindsTheParagraphTagsThatTheExpressionFinds)
{
    const QRegularExpression expression(QStringLiteral(R"(<p\h?.*?>((?:.|\R)*)<\/p>)"),
                                        QRegularExpression::MultilineOption);
    RandomText random({QStringLiteral("<p"), QStringLiteral("<p>"), QStringLiteral("</p>"),
                       QStringLiteral("<pre class=\"x\">"), QStringLiteral(">"), QStringLiteral(" "),
                       QStringLiteral("a"), QStringLiteral("</pre>")});
    for (int count = 0; count < 20'000; ++count) {
        const QString text = random.next();
        const QRegularExpressionMatch match = expression.match(text);
        ASSERT_EQ(withoutSurroundingParagraphTags(QString(text)), match.hasMatch() ? match.captured(1) : text)
            << text.toStdString();
    }
}

TEST(RomanNumeral, HasTheValueOfItsLetters)
{
    const QRegularExpression expression(
        QStringLiteral("^(?<xxxx>M{1,3})?(?<xxx>C{1,3}|CD|DC{0,3}|CM)?(?<xx>X{1,3}|XL|LX{0,3}|XC)?"
                       "(?<x>I{1,3}|IV|VI{0,3}|IX)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto digit = [](const QString& letters, QChar one, QChar five, const QString& four,
                          const QString& nine) {
        const QString upper = letters.toUpper();
        if (upper == four)
            return 4;
        if (upper == nine)
            return 9;
        return static_cast<int>(upper.count(one) + 5 * upper.count(five));
    };
    const QString letters = QStringLiteral("IVXLCDMivx");
    RandomText random(letters.split(QString(), Qt::SkipEmptyParts));
    const auto check = [&](const QString& numeral) {
        const QRegularExpressionMatch match = expression.match(numeral);
        int expected = 0;
        if (match.hasMatch())
            expected = 1000 * match.capturedLength(QStringLiteral("xxxx")) +
                       100 * digit(match.captured(QStringLiteral("xxx")), QLatin1Char('C'), QLatin1Char('D'),
                                   QStringLiteral("CD"), QStringLiteral("CM")) +
                       10 * digit(match.captured(QStringLiteral("xx")), QLatin1Char('X'), QLatin1Char('L'),
                                  QStringLiteral("XL"), QStringLiteral("XC")) +
                       digit(match.captured(QStringLiteral("x")), QLatin1Char('I'), QLatin1Char('V'),
                             QStringLiteral("IV"), QStringLiteral("IX"));
        ASSERT_EQ(romanValue(QStringRef(&numeral)), expected) << numeral.toStdString();
    };
    for (int count = 0; count < 50'000; ++count)
        check(random.next(8).remove(QLatin1Char('\n')));
    for (const char* numeral :
         {"MCMXCIX", "MMMCMXCIX", "MMMDCCCLXXXVIII", "iv", "IIII", "MMMM", "IC", "VX", "XIV"})
        check(QString::fromLatin1(numeral));
}

} // namespace
