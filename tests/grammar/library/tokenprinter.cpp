// tokenprinter GRAMMAR FILE...
//   Tokenises files and prints a line of JSON for each of their lines, an array of {"start", "length",
//   "scopes"}; of each file the slowest line on standard error.

#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <cstdio>

using namespace Halvorin::TextMate;

namespace {

QByteArray jsonOf(const std::vector<Token>& tokens)
{
    QJsonArray array;
    for (const Token& token : tokens)
        array.append(QJsonObject{{QStringLiteral("start"), token.start},
                                 {QStringLiteral("length"), token.length},
                                 {QStringLiteral("scopes"), QJsonArray::fromStringList(token.scopes)}});
    return QJsonDocument(array).toJson(QJsonDocument::Compact) + '\n';
}

bool printTokens(GrammarProcessor& processor, const QString& path, QFile& output)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty())
        lines.removeLast();
    Continuation continuation;
    QElapsedTimer timer;
    qint64 slowest = 0;
    int slowestNumber = 0;
    for (int number = 0; number < lines.size(); ++number) {
        timer.start();
        TokenList tokens = processor.tokenise(lines.at(number) + QLatin1Char('\n'), continuation);
        if (timer.nsecsElapsed() > slowest) {
            slowest = timer.nsecsElapsed();
            slowestNumber = number + 1;
        }
        continuation = tokens.takeContinuation();
        output.write(jsonOf(tokens.tokens()));
    }
    QTextStream(stderr) << "slowest line " << path << ':' << slowestNumber << ", "
                        << QString::number(static_cast<double>(slowest) / 1e6, 'f', 1) << " ms\n";
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    GrammarProcessor processor(std::make_shared<const Grammar>(QFile::decodeName(argv[1])));
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return 1;
    for (int index = 2; index < argc; ++index) {
        if (!printTokens(processor, QFile::decodeName(argv[index]), output))
            return 1;
    }
    return 0;
}
