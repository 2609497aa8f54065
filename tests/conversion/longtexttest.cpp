#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"

#include <gtest/gtest.h>

using namespace Halvorin::Text;

namespace {

/// A text of about 200,000 characters, and what its conversion must hold.
struct LongText
{
    const char* what;
    QString text;
    const char* tag; ///< what is counted in the HTML
    int count;
};

QString times(int count, const char* piece)
{
    return QString::fromUtf8(piece).repeated(count);
}

/// Lines of which each is one blank deeper than the one before.
QString deeper(int count, const char* line)
{
    QString text;
    for (int depth = 0; depth < count; ++depth)
        text += QString(depth, QLatin1Char(' ')) + QString::fromUtf8(line) + QLatin1Char('\n');
    return text;
}

/// Lines each of which begins with another indent of 14 blanks and tabs.
QString manyIndents(int count, const char* lines)
{
    QString text;
    for (int number = 0; number < count; ++number) {
        for (int bit = 0; bit < 14; ++bit)
            text += QLatin1Char((number >> bit & 1) != 0 ? '\t' : ' ');
        text += QString::fromUtf8(lines);
    }
    return text;
}

/// Beginnings of simple tables, each of another border.
QString manyBorders(int count)
{
    QString text;
    for (int number = 0; number < count; ++number) {
        text += QStringLiteral("= ");
        for (int bit = 0; bit < 14; ++bit)
            text += QLatin1Char((number >> bit & 1) != 0 ? '=' : ' ');
        text += QStringLiteral("=\na\n\n");
    }
    return text;
}

std::vector<LongText> longTexts()
{
    const QString longBorder = times(50'000, "= ") + QLatin1Char('=');
    const QString blank = QStringLiteral("  ");
    return {
        {"a paragraph of short lines", times(20'000, "some words\n"), "<p>", 1},
        {"a paragraph of one line", times(20'000, "some words"), "<p>", 1},
        {"short paragraphs", times(60'000, "a\n\n"), "<p>", 60'000},
        {"bullets", times(20'000, "- item\n"), "<li>", 20'000},
        {"bullets that text follows", times(20'000, "- item\n") + QLatin1Char('x'), "<p>", 1},
        {"bullets and hard spaces",
         QStringLiteral("- a\n") + times(50'000, "\u00a0\n") + QStringLiteral("- b"), "<li>", 2},
        {"numbers", times(20'000, "1. item\n"), "<ol", 20'000},
        {"numbers that text follows", times(20'000, "1. item\n") + QLatin1Char('x'), "<p>", 1},
        {"automatic numbers", QStringLiteral("1. item\n") + times(20'000, "#. item\n"), "<li>", 20'001},
        {"Roman numerals", times(20'000, "i. item\n"), "<ol", 20'000},
        {"terms", times(15'000, "term\n    text\n"), "<dt>", 15'000},
        {"a literal block", QStringLiteral("a::\n\n") + times(20'000, "    text\n"), "    text\n", 20'000},
        {"empty lines in a literal block",
         QStringLiteral("a\nb::\n") + times(50'000, "\n") + QStringLiteral("  x"), "<pre", 1},
        {"markers without blocks", times(40'000, "a::\n\n"), "<p>", 40'000},
        {"a doctest", times(30'000, ">>> x\n"), "rstDoctest", 1},
        {"a doctest that blanks follow", times(30'000, ">>> x\n") + blank, "<p>", 1},
        {"headings", times(15'000, "Title\n=====\n"), "<h1>", 15'000},
        {"a directive", QStringLiteral(".. note:: x\n") + times(20'000, "   body\n"), "   body\n", 20'000},
        {"a grid table", QStringLiteral("+---+---+\n") + times(9'000, "| a | b |\n+---+---+\n"), "<td>",
         18'000},
        {"a grid table that nothing closes", times(9'000, "+---+---+\n| a | b |\n") + QLatin1Char('x'), "<p>",
         1},
        {"beginnings of grid tables", times(25'000, "+-+\nx\n\n"), "<p>", 25'000},
        {"a simple table", QStringLiteral("== ==\n") + times(30'000, "a  b\n") + QStringLiteral("== =="),
         "<td>", 60'000},
        {"beginnings of simple tables", times(15'000, "== ==\na  b\n\n"), "<p>", 15'000},
        {"a simple table of many columns",
         longBorder + QStringLiteral("\na\n") + times(20'000, " \n") + longBorder, "<td>", 50'001},
        {"a simple table of many columns and rows",
         times(10'000, "= ") + QStringLiteral("=\n") + times(20'000, "a\n") + times(10'000, "= ") +
             QLatin1Char('='),
         "<td>", 131'111},
        {"vertical tabs", times(200'000, "\v"), "<", 0},
        {"borders of simple tables in one line", QStringLiteral("== ==\fa") + times(30'000, "== ==\f"),
         "<table>", 1},
        {"blanks", times(200'000, " "), "<", 0},
        {"stars", times(200'000, "*"), "<p>", 1},
        {"open emphasis", times(60'000, " *a"), "<i>", 0},
        {"emphasis", times(40'000, "*a* "), "<i>", 40'000},
        {"openings of links", times(20'000, "`<https://"), "<p>", 1},
        {"links", times(10'000, "`a <https://b>`_ "), "<a ", 10'000},
        {"addresses", times(15'000, "https://a.bc "), "<a ", 15'000},
        {"references", times(20'000, ":ref:`a` "), ":ref:", 0},
        {"escapes", times(60'000, "\\a "), "a", 60'000},
        {"functions", times(12'000, "def f(a) -> int\n"), "pyLspFuncDef", 1},
        {"functions that text follows", times(12'000, "def f(a) -> int\n") + QLatin1Char('x'), "<p>", 1},
        {"beginnings of functions", times(20'000, "def a(\n\n"), "<p>", 20'000},
        {"arrows", QStringLiteral("def f((") + times(60'000, ")->"), "pyLspFuncDef", 1},
        {"a section of names", QStringLiteral("See Also\n--------\n") + times(20'000, "foo : bar\n"), "<dt>",
         20'000},
        {"a section of colons", QStringLiteral("See Also\n--------\n") + times(200'000, ":"), "<dt>", 0},
        {"lists in lists", times(60'000, "- "), "<ul", 200},
        {"terms in terms", deeper(600, "t"), "<dl", 200},
        {"directives in directives", deeper(600, ".. a:: b"), ".. a:: b", 400},
        {"markers of many indents", manyIndents(10'000, "a\nb::\n\n"), "<p>", 10'000},
        {"grid tables of many indents", manyIndents(10'000, "+-+\nx\n\n"), "<p>", 10'000},
        {"borders of many kinds", manyBorders(10'000), "<p>", 10'000},
        {"directives in one line", times(30'000, ".. a:: "), "<", 0},
        {"escapes before addresses", times(20'000, "\\https://"), "<p>", 1},
        {"carriage returns", times(15'000, "some words\r\n\r\n"), "<p>", 15'000},
        {"form feeds in a line", times(40'000, "word\f"), "<p>", 1},
    };
}

TEST(LongText, IsConvertedWhole)
{
    const PythonLSPConversionLibrary library;
    const int before = Expression::givenUpCount();
    for (const LongText& longText : longTexts()) {
        const QString html = library.convertToHTML(longText.text);
        EXPECT_EQ(html.count(QString::fromUtf8(longText.tag)), longText.count) << longText.what;
    }
    EXPECT_EQ(Expression::givenUpCount(), before);
}

TEST(LongText, IsBoundedWhereExpressionsAreUsedForOtherEndsOfLines)
{
    const PythonLSPConversionLibrary library;
    for (const char* piece :
         {"def a(\n\n", "some words ", "== ==\na  b\n\n", "1. a\n", "- a\n", "a::\n\nb\n\n", "t\n  d\n"}) {
        const QString text = times(20'000 / static_cast<int>(qstrlen(piece)) - 1, piece) + QLatin1Char('\f');
        EXPECT_FALSE(library.convertToHTML(text).isEmpty()) << piece;
    }
}

} // namespace
