#include "conversion/corpus.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

#include <QGuiApplication>
#include <QTextDocument>

TEST(DocstringCorpus, IsShownByATextDocument)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments); // a document needs its fonts
    const Halvorin::Text::PythonLSPConversionLibrary library;
    for (const QString& docstring : readCorpus(PROJECT_FOLDER "/tests/conversion/docstrings.py")) {
        QTextDocument document;
        document.setHtml(library.convertToHTML(docstring));
        ASSERT_EQ(document.toPlainText().trimmed().isEmpty(), docstring.trimmed().isEmpty())
            << docstring.toStdString();
    }
}
