#include "linetokeniser/linetokeniser.h"

#include "resources/libraryresources.h"
#include "support/temporaryfolder.h"

namespace {

using Halvorin::TextMate::LineTokeniser;
using Halvorin::TextMate::Token;

QString qt(const std::filesystem::path& path)
{
    return QString::fromStdString(path.native());
}

/// The innermost scope of the token at the start of a line.
std::string firstScope(LineTokeniser& tokeniser, const char* line)
{
    return tokeniser.nextLine(QString::fromUtf8(line)).front().scopes.back().toStdString();
}

} // namespace

TEST(LineTokeniser, GoesOnWithWhatIsOpenAtTheEndOfTheLineBefore)
{
    LineTokeniser tokeniser(Halvorin::LibraryResources::pythonGrammar());
    EXPECT_EQ(firstScope(tokeniser, "x = 1"), "source.python");
    tokeniser.nextLine(QStringLiteral("x = '''"));
    EXPECT_EQ(firstScope(tokeniser, "x = 1"), "string.quoted.triple.python");
    EXPECT_EQ(firstScope(tokeniser, "'''"), "punctuation.definition.string.end.python");
    EXPECT_EQ(firstScope(tokeniser, "x = 1"), "source.python");
}

TEST(LineTokeniser, GivesTheLineAnEndThatTokensCover)
{
    const TemporaryFolder folder;
    LineTokeniser tokeniser(
        qt(folder.write("a.json", R"({"scopeName": "s", "patterns": [{"match": "b\n", "name": "end"}]})")));
    const Token before{0, 1, {QStringLiteral("s")}};
    const Token end{1, 2, {QStringLiteral("s"), QStringLiteral("end")}};
    EXPECT_EQ(tokeniser.nextLine(QStringLiteral("ab")), (std::vector{before, end}));
}

TEST(LineTokeniser, CanReadTheThreeSuffixesInEitherCase)
{
    for (const char* path : {"a.json", "a.dat", "a.tmLanguage", "A.JSON", ":/a.tmlanguage"})
        EXPECT_TRUE(LineTokeniser::canRead(QString::fromUtf8(path))) << path;
    for (const char* path : {"", "a", "json", "a.json.gz", "a.plist"})
        EXPECT_FALSE(LineTokeniser::canRead(QString::fromUtf8(path))) << path;
}

TEST(LineTokeniser, TellsAGrammarWithoutRules)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(LineTokeniser(Halvorin::LibraryResources::pythonGrammar()).hasRules());
    EXPECT_FALSE(LineTokeniser(QStringLiteral("/nix.json")).hasRules());
    EXPECT_FALSE(LineTokeniser(qt(folder.write("a.json", "{"))).hasRules());
    EXPECT_FALSE(LineTokeniser(qt(folder.write("b.json", R"({"patterns": []})"))).hasRules());
}
