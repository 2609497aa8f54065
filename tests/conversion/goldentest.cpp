// Runs the cases of cases/*.cases. The fields:
//
//   source        the text
//   html          what it is converted to
//   library       python for docstrings; reStructuredText when left out
//   why           a word on which rule wins and why, for the reader
//
// regenerate-golden writes the html of all cases anew.

#include "conversion/pythonlspconversionlibrary.h"
#include "support/casefile.h"
#include "testfolders.h"

#include <algorithm>

namespace {

using namespace Halvorin::Text;

class GoldenHtml : public testing::TestWithParam<TestCase>
{};

TEST_P(GoldenHtml, IsWhatTheSourceConvertsTo)
{
    static const RSTConversionLibrary reStructuredText;
    static const PythonLSPConversionLibrary docstrings;
    const TestCase& testCase = GetParam();
    for (const CaseField& field : testCase.fields()) {
        const std::array known = {"source", "html", "library", "why"};
        ASSERT_NE(std::ranges::find(known, field.key), known.end()) << testCase.place() << ": " << field.key;
    }
    const std::string library = testCase.valueOr("library", "");
    ASSERT_TRUE(library.empty() || library == "python") << testCase.place();
    const RSTConversionLibrary& converter = library.empty() ? reStructuredText : docstrings;
    EXPECT_EQ(converter.convertToHTML(QString::fromStdString(testCase.at("source"))).toStdString(),
              testCase.at("html"))
        << testCase.place();
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenHtml, testing::ValuesIn(readCaseFolder(TEST_SOURCE_FOLDER "/cases")),
                         [](const auto& parameter) { return identifierOf(parameter.param); });

} // namespace
