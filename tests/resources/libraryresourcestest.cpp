#include "resources/libraryresources.h"
#include "testfolders.h"

#include <QFile>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

} // namespace

TEST(LibraryResources, HaveTheGrammarForPythonAlsoInAProgramOfArchives)
{
    const QString path = Halvorin::LibraryResources::pythonGrammar();
    EXPECT_EQ(path, QStringLiteral(":/halvwidgets/grammars/python.tmLanguage.json"));
    EXPECT_EQ(contentOf(path),
              contentOf(QStringLiteral(PROJECT_FOLDER "/resources/grammars/python.tmLanguage.json")));
}

TEST(LibraryResources, MayBeAskedForAgain)
{
    Halvorin::LibraryResources::pythonGrammar();
    EXPECT_FALSE(contentOf(Halvorin::LibraryResources::pythonGrammar()).isEmpty());
}
