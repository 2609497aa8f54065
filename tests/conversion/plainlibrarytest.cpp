// The conversion beside one that takes no short cuts, on random texts and on docstrings.

#include "plain/plainlibrary.h"
#include "byexpressions.h"
#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "corpus.h"
#include "randomtext.h"
#include "testfolders.h"

using namespace Halvorin::Text;

namespace {

QStringList split(const char* pieces)
{
    return QString::fromUtf8(pieces).split(QLatin1Char('~'));
}

/// Pieces of every rule.
QStringList markup()
{
    return split(
        "a~b c~ ~   ~- ~* ~+ ~1. ~2. ~#. ~(1) ~(2) ~(#) ~1) ~i. ~ii. ~(i) ~I) ~A) ~B) ~#) ~c. ~::~\n\n"
        "~===\n~---\n~**\n~== ==\n~== == ==~-- --\n~-----~a  b\n~   c\n~+--+\n~+--+--+~+==+\n~|  |\n~|x |y |"
        "~>>> ~.. a:: b~.. versionchanged:: 1\n~t : u~  x~**x**~`y`~``z``~\\*~`t <https://u>`_~https://z"
        "~:ref:`w`~def f(~) -> int~(class) ~(function) ~(module) m~(parameter) ~(variable) "
        "~See Also\n--------\n~\u00a0~\t");
}

QStringList otherEnds()
{
    return split("\r~\r\n~\r\n~\v~\f~\u0085~\u2028");
}

/// Compares on texts until one differs. Where an expression is given up there is nothing to compare.
template <class Library>
class Comparison
{
public:
    explicit Comparison(bool isPython) : m_plain(isPython) {}

    bool isSame(const QString& text)
    {
        ++m_texts;
        const int before = Expression::givenUpCount();
        const QString expected = m_plain.convertToHtml(text);
        const QString html = m_library.convertToHTML(text);
        if (m_plain.isGivenUp() || Expression::givenUpCount() != before) {
            ++m_givenUp;
            return true;
        }
        EXPECT_EQ(html.toStdString(), expected.toStdString()) << testing::PrintToString(text.toStdString());
        return html == expected;
    }

    /// Half of the texts are made of a few pieces, so that these meet.
    void compareRandomTexts(const QStringList& pieces, int count)
    {
        std::mt19937 random(5);
        for (int number = 0; number < count; ++number) {
            QStringList some = pieces;
            std::shuffle(some.begin(), some.end(), random);
            if (number % 2 == 0)
                some = some.mid(0, 6);
            if (!isSame(RandomText(some, static_cast<unsigned>(number)).next(30)))
                break;
        }
        EXPECT_LT(m_givenUp, m_texts / 50);
    }

    int givenUp() const { return m_givenUp; }

private:
    Library m_library;
    PlainLibrary m_plain;
    int m_texts = 0;
    int m_givenUp = 0;
};

} // namespace

TEST(PlainLibrary, GivesTheHtmlOfReStructuredText)
{
    Comparison<RSTConversionLibrary>(false).compareRandomTexts(markup(), 12'000);
}

TEST(PlainLibrary, GivesTheHtmlOfDocstrings)
{
    Comparison<PythonLSPConversionLibrary>(true).compareRandomTexts(markup(), 12'000);
}

TEST(PlainLibrary, GivesTheHtmlOfTextsWithOtherEndsOfLines)
{
    Comparison<RSTConversionLibrary>(false).compareRandomTexts(markup() + otherEnds(), 6'000);
    Comparison<PythonLSPConversionLibrary>(true).compareRandomTexts(markup() + otherEnds() + otherEnds(),
                                                                    6'000);
}

TEST(PlainLibrary, GivesTheHtmlOfMatchesThatAreAskedForOneByOne)
{
    Comparison<ByExpressions<PythonLSPConversionLibrary>>(true).compareRandomTexts(markup() + otherEnds(),
                                                                                   2'000);
}

/// One half of the docstrings of Python's standard library and of numpy.
class Docstrings : public testing::TestWithParam<int>
{
protected:
    template <class Library>
    static void compare(bool isPython, int every)
    {
        Comparison<Library> comparison(isPython);
        int number = 0;
        for (const QString& docstring : readCorpus(TEST_SOURCE_FOLDER "/docstrings.py"))
            if (++number % every == GetParam() && !comparison.isSame(docstring))
                break;
        EXPECT_EQ(comparison.givenUp(), 0);
    }
};

INSTANTIATE_TEST_SUITE_P(Half, Docstrings, testing::Values(0, 1));

TEST_P(Docstrings, BecomeTheHtmlOfThePlainLibrary)
{
    compare<PythonLSPConversionLibrary>(true, 2);
}

TEST_P(Docstrings, BecomeTheHtmlOfThePlainLibraryAsReStructuredText)
{
    compare<RSTConversionLibrary>(false, 2);
}

TEST(PlainLibrary, GivesTheHtmlOfDocstringsWithOtherEndsOfLines)
{
    Comparison<PythonLSPConversionLibrary> comparison(true);
    int number = 0;
    for (QString docstring : readCorpus(TEST_SOURCE_FOLDER "/docstrings.py"))
        if (++number % 16 == 0 &&
            !comparison.isSame(docstring.replace(QLatin1Char('\n'), QLatin1String("\r\n"))))
            break;
    EXPECT_LT(comparison.givenUp(), 12);
}
