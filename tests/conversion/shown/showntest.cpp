#include "conversion/corpus.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

#include <QGuiApplication>
#include <QTextDocument>

using namespace Halvorin::Text;

namespace {

/// A text document needs an application for its fonts.
class ApplicationEnvironment : public testing::Environment
{
public:
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments);
    }
    void TearDown() override { m_application.reset(); }

private:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QGuiApplication> m_application;
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

TEST(DocstringCorpus, isShownByATextDocument)
{
    const PythonLSPConversionLibrary library;
    for (const QString& docstring : readCorpus(PROJECT_FOLDER "/tests/conversion/docstrings.py")) {
        QTextDocument document;
        document.setHtml(library.convertToHTML(docstring));
        ASSERT_EQ(document.toPlainText().trimmed().isEmpty(), docstring.trimmed().isEmpty())
            << docstring.toStdString();
    }
}

} // namespace
