#include "conversion/pythonlspconversionlibrary.h"
#include "testfolders.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Halvorin::Text;

namespace {

/// The blocks of a Markdown text between lines of three back-quotes: what the first line names, and the text.
std::vector<std::pair<QString, QString>> blocksOf(const QString& markdown)
{
    std::vector<std::pair<QString, QString>> blocks;
    const QStringList parts = (QLatin1Char('\n') + markdown).split(QStringLiteral("\n```"));
    for (int index = 1; index < parts.size(); index += 2) {
        const int lineEnd = parts.at(index).indexOf(QLatin1Char('\n'));
        blocks.emplace_back(parts.at(index).left(lineEnd), parts.at(index).mid(lineEnd + 1));
    }
    return blocks;
}

TEST(TextConversionReference, HasExamplesThatAreTrue)
{
    QFile file(QStringLiteral(PROJECT_FOLDER "/docs/reference/text-conversion.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const RSTConversionLibrary reStructuredText;
    const PythonLSPConversionLibrary docstrings;
    QString html;
    int compared = 0;
    for (const auto& [language, text] : blocksOf(QString::fromUtf8(file.readAll()))) {
        if (language == QLatin1String("rst"))
            html = reStructuredText.convertToHTML(text + QLatin1Char('\n'));
        if (language == QLatin1String("python-docstring"))
            html = docstrings.convertToHTML(text + QLatin1Char('\n'));
        if (language != QLatin1String("html"))
            continue;
        EXPECT_EQ(text.toStdString(), html.toStdString());
        ++compared;
    }
    EXPECT_EQ(compared, 2);
}

} // namespace
