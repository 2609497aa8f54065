#include "corpus.h"
#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

using namespace Halvorin::Text;

namespace {

/// With line feeds scanners do the work, and expressions with other ends of lines.
TEST(DocstringCorpus, IsConvertedWithoutGivingAnExpressionUp)
{
    const PythonLSPConversionLibrary library;
    const int before = Expression::givenUpCount();
    for (const QString& docstring : readCorpus(TEST_SOURCE_FOLDER "/docstrings.py"))
        for (const char* end : {"\n", "\r\n"}) {
            const QString text = QString(docstring).replace(QLatin1Char('\n'), QLatin1String(end));
            ASSERT_EQ(library.convertToHTML(text).isEmpty(), docstring.trimmed().isEmpty())
                << text.toStdString();
        }
    EXPECT_EQ(Expression::givenUpCount(), before);
}

} // namespace
