#include "corpus.h"
#include "byexpressions.h"
#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

using namespace Halvorin::Text;

namespace {

/// The expressions need a time for a text that grows with its square.
constexpr int longestCompared = 1'500;

TEST(DocstringCorpus, isConvertedAsTheExpressionsDoIt)
{
    const PythonLSPConversionLibrary library;
    const ByExpressions<PythonLSPConversionLibrary> byExpressions;
    int givenUp = 0;
    int compared = 0;
    for (const QString& docstring : readCorpus(TEST_SOURCE_FOLDER "/docstrings.py")) {
        const int before = Expression::givenUpCount();
        const QString html = library.convertToHTML(docstring);
        givenUp += Expression::givenUpCount() - before;
        ASSERT_EQ(html.isEmpty(), docstring.trimmed().isEmpty()) << docstring.toStdString();
        if (docstring.size() > longestCompared || ++compared % 16 != 0)
            continue;
        ASSERT_EQ(html, byExpressions.convertToHTML(docstring)) << docstring.toStdString();
    }
    EXPECT_EQ(givenUp, 0);
}

} // namespace
