#include "corpus.h"
#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

using namespace Halvorin::Text;

namespace {

TEST(DocstringCorpus, isConvertedWithoutGivingAnExpressionUp)
{
    const PythonLSPConversionLibrary library;
    const int before = Expression::givenUpCount();
    for (const QString& docstring : readCorpus(TEST_SOURCE_FOLDER "/docstrings.py"))
        ASSERT_EQ(library.convertToHTML(docstring).isEmpty(), docstring.trimmed().isEmpty())
            << docstring.toStdString();
    EXPECT_EQ(Expression::givenUpCount(), before);
}

} // namespace
