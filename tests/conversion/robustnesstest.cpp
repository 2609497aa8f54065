#include "byexpressions.h"
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

QStringList markup()
{
    return {QStringLiteral("a"),
            QStringLiteral("b c"),
            QStringLiteral(" "),
            QStringLiteral("   "),
            QStringLiteral("- "),
            QStringLiteral("* "),
            QStringLiteral("1. "),
            QStringLiteral("#. "),
            QStringLiteral("(i) "),
            QStringLiteral("A) "),
            QStringLiteral("::"),
            QStringLiteral("\n\n"),
            QStringLiteral("===\n"),
            QStringLiteral("---\n"),
            QStringLiteral("== =="),
            QStringLiteral("+--+"),
            QStringLiteral("+--+--+"),
            QStringLiteral("| x|"),
            QStringLiteral(">>> "),
            QStringLiteral(".. a:: b"),
            QStringLiteral("t : u"),
            QStringLiteral("**x**"),
            QStringLiteral("`y`"),
            QStringLiteral("\\*"),
            QStringLiteral("def f("),
            QStringLiteral(") -> int"),
            QStringLiteral("(class)"),
            QStringLiteral("(function) "),
            QStringLiteral("See Also\n--------\n"),
            QStringLiteral("https://z"),
            QStringLiteral("\u00a0")};
}

template <class Library>
void convertsAsTheExpressionsDo(const QStringList& pieces, int texts)
{
    const Library library;
    const ByExpressions<Library> byExpressions;
    RandomText random(pieces, 7);
    int givenUp = 0;
    for (int count = 0; count < texts; ++count) {
        const QString text = random.next(40);
        const int before = Expression::givenUpCount();
        const QString html = library.convertToHTML(text);
        const QString expected = byExpressions.convertToHTML(text);
        if (Expression::givenUpCount() != before) { // then there is nothing to compare with
            ++givenUp;
            continue;
        }
        ASSERT_EQ(html, expected) << text.toStdString();
    }
    EXPECT_LT(givenUp, texts / 100);
}

TEST(Conversion, givesWhatTheExpressionsOfReStructuredTextGive)
{
    convertsAsTheExpressionsDo<RSTConversionLibrary>(markup(), 2'000);
}

TEST(Conversion, givesWhatTheExpressionsOfDocstringsGive)
{
    convertsAsTheExpressionsDo<PythonLSPConversionLibrary>(markup(), 2'000);
}

TEST(Conversion, givesWhatTheExpressionsGiveWithOtherEndsOfLines)
{
    QStringList pieces = markup();
    for (const char16_t end : {u'\r', u'\v', u'\f', u'\u0085', u'\u2028'})
        pieces << QString(QChar(end)) << QString(QChar(end));
    pieces << QStringLiteral("\r\n") << QStringLiteral("\r\n") << QStringLiteral("\r\n");
    convertsAsTheExpressionsDo<PythonLSPConversionLibrary>(pieces, 2'000);
}

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

TEST(Conversion, replacesInOnePassWhatTheExpressionsReplaceStepByStep)
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

TEST(Conversion, replacesHalvesOfCharacters)
{
    const RSTConversionLibrary library;
    QString text = QStringLiteral("a\u00e4 **b**");
    text[1] = QChar(0xD800);
    EXPECT_EQ(library.convertToHTML(text), QStringLiteral("<p>a\uFFFD <b>b</b></p>"));
    EXPECT_EQ(library.convertToHTML(QStringLiteral("*\U0001F600* \\\U0001F600")),
              QStringLiteral("<p><i>\U0001F600</i> \U0001F600</p>"));
}

TEST(Conversion, leavesListsThatNestTooDeepAsTheyStand)
{
    const RSTConversionLibrary library;
    const QString html = library.convertToHTML(QStringLiteral("- ").repeated(20'000) + QLatin1Char('x'));
    EXPECT_EQ(html.count(QLatin1String("<ul")), 200);
    EXPECT_EQ(html.count(QLatin1String("</ul>")), 200);
    EXPECT_TRUE(html.contains(QLatin1String("- - x</li>")));
}

TEST(Conversion, findsTheParagraphTagsThatTheExpressionFinds)
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

TEST(RomanNumeral, hasTheValueOfItsLetters)
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
