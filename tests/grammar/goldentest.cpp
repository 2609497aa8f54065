// Our grammar for Python over the files of golden/, by theme, held against scopes that another engine gave.

#include "grammar/grammartester.h"
#include "testfolders.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <algorithm>
#include <set>

using namespace Halvorin::TextMate;

namespace {

const QString goldenFolder = QStringLiteral(TEST_SOURCE_FOLDER "/golden");
const QString pythonGrammar = QStringLiteral(PROJECT_FOLDER "/resources/grammars/python.tmLanguage.json");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// The lines of a text, without the nothing behind the last line's end.
QList<QByteArray> linesOf(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

QStringList sourceNames()
{
    return QDir(goldenFolder).entryList({QStringLiteral("*.py")}, QDir::Files, QDir::Name);
}

/// The scopes of each column of a line's text; none where no token is. Of tokens over one column the
/// innermost counts, the one with the most scopes.
std::vector<std::string> columnsOf(const std::vector<Token>& tokens, int length)
{
    std::vector<QStringList> columns(static_cast<std::size_t>(length));
    for (const Token& token : tokens) {
        for (int column = token.start; column < std::min(token.start + token.length, length); ++column) {
            QStringList& scopes = columns[static_cast<std::size_t>(column)];
            if (token.scopes.size() >= scopes.size())
                scopes = token.scopes;
        }
    }
    std::vector<std::string> texts;
    for (const QStringList& scopes : columns)
        texts.push_back(scopes.join(QLatin1Char(' ')).toStdString());
    return texts;
}

std::vector<std::string> expectedColumns(const QByteArray& json, int length)
{
    std::vector<Token> tokens;
    for (const QJsonValue value : QJsonDocument::fromJson(json).array()) {
        QStringList scopes;
        for (const QJsonValue scope : value[QLatin1String("scopes")].toArray())
            scopes.append(scope.toString());
        tokens.push_back(
            {value[QLatin1String("start")].toInt(), value[QLatin1String("length")].toInt(), scopes});
    }
    return columnsOf(tokens, length);
}

class GoldenScopes : public testing::TestWithParam<QString>
{};

std::vector<QString> parameters()
{
    const QStringList names = sourceNames();
    return {names.begin(), names.end()};
}

std::string testName(const testing::TestParamInfo<QString>& info)
{
    std::string name = info.param.chopped(3).toStdString();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

/// The grammar with the name of each rule of the repository as its last scope.
std::shared_ptr<const Grammar> markedGrammar()
{
    QJsonObject grammar = QJsonDocument::fromJson(contentOf(pythonGrammar)).object();
    QJsonObject repository = grammar[QLatin1String("repository")].toObject();
    for (const QString& key : repository.keys()) {
        QJsonObject rule = repository[key].toObject();
        if (rule.contains(QLatin1String("match")) || rule.contains(QLatin1String("begin")))
            rule[QLatin1String("name")] = QString(QLatin1String("rule:") + key);
        repository[key] = rule;
    }
    grammar[QLatin1String("repository")] = repository;
    return std::make_shared<const Grammar>(readJsonGrammar(grammar));
}

} // namespace

TEST_P(GoldenScopes, AreThoseOfTheOtherEngine)
{
    const QList<QByteArray> lines = linesOf(contentOf(goldenFolder + QLatin1Char('/') + GetParam()));
    const QList<QByteArray> golden =
        linesOf(contentOf(goldenFolder + QLatin1Char('/') + GetParam() + QLatin1String(".json")));
    ASSERT_EQ(lines.size(), golden.size());
    GrammarProcessor processor(std::make_shared<const Grammar>(pythonGrammar));
    Continuation continuation;
    for (int number = 0; number < lines.size(); ++number) {
        const QString line = QString::fromUtf8(lines[number]);
        TokenList tokens = processor.tokenise(line + QLatin1Char('\n'), continuation);
        continuation = tokens.takeContinuation();
        const std::vector<std::string> columns = columnsOf(tokens.tokens(), line.size());
        const std::vector<std::string> expected = expectedColumns(golden[number], line.size());
        for (std::size_t column = 0; column < columns.size(); ++column) {
            // what is around an item that is still open at the end of its line has no token
            if (continuation && columns[column].empty())
                continue;
            EXPECT_EQ(columns[column], expected[column])
                << GetParam().toStdString() << ':' << number + 1 << ':' << column + 1;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Python, GoldenScopes, testing::ValuesIn(parameters()), testName);

TEST(PythonGrammar, HasNoRuleThatNoGoldenFileReaches)
{
    const std::shared_ptr<const Grammar> grammar = markedGrammar();
    std::set<QString> unreached;
    for (const auto& [key, rule] : grammar->repository()) {
        if (rule.match || rule.begin)
            unreached.insert(key);
    }
    EXPECT_GT(unreached.size(), 190U);
    for (const QString& name : sourceNames()) {
        GrammarProcessor processor(grammar);
        Continuation continuation;
        for (const QByteArray& line : linesOf(contentOf(goldenFolder + QLatin1Char('/') + name))) {
            TokenList tokens = processor.tokenise(QString::fromUtf8(line) + QLatin1Char('\n'), continuation);
            continuation = tokens.takeContinuation();
            for (const Token& token : tokens.tokens()) {
                for (const QString& scope : token.scopes) {
                    if (scope.startsWith(QLatin1String("rule:")))
                        unreached.erase(scope.mid(5));
                }
            }
        }
    }
    for (const QString& key : unreached)
        ADD_FAILURE() << "no golden file reaches the rule " << key.toStdString();
}
