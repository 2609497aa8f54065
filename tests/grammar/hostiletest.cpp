// Texts and grammars that nobody should write: each line comes to an end, with tokens that stand in it.

#include "grammar/grammartester.h"
#include "support/qtcore/hostlog.h"
#include "testfolders.h"

using namespace Halvorin::TextMate;

namespace {

std::shared_ptr<const Grammar> pythonGrammar()
{
    static const auto grammar = std::make_shared<const Grammar>(
        QStringLiteral(PROJECT_FOLDER "/resources/grammars/python.tmLanguage.json"));
    return grammar;
}

QString repeated(const char* text, int length)
{
    const QString piece = QString::fromUtf8(text);
    return piece.repeated(length / piece.size()) + QLatin1Char('\n');
}

void expectTokensInside(const std::vector<Token>& tokens, const QString& line, const char* what)
{
    ASSERT_FALSE(tokens.empty()) << what;
    int start = 0;
    for (const Token& token : tokens) {
        ASSERT_GE(token.start, start) << what;
        ASSERT_LE(token.start + token.length, line.size()) << what;
        start = token.start;
    }
}

} // namespace

TEST(HostileText, OfAMillionCharactersInALineIsTokenised)
{
    for (const char* text : {"(", "a", "\"ab\\n\",", "é", " "}) {
        GrammarProcessor processor(pythonGrammar());
        const QString line = repeated(text, 1'000'000);
        expectTokensInside(processor.tokenise(line).tokens(), line, text);
    }
}

TEST(HostileText, OfWhateverPythonHasIsTokenised)
{
    for (const char* text : {"[{(",
                             "a.b(c)+",
                             "\"",
                             "f\"{a!r:>{w}}\" ",
                             "f\"{",
                             "1_0.5e3j,",
                             "\\",
                             "#",
                             "lambda a, b=1: ",
                             "def f(",
                             "a: b = ",
                             "=",
                             "@a",
                             "\"\"\"x ",
                             "match x: case ",
                             "class A(B, metaclass=C): ",
                             "from . import a as b, ",
                             "\U0001F600",
                             "-> ",
                             "async for x in ",
                             "0x",
                             "type X = ",
                             "% ",
                             "'%d' "}) {
        GrammarProcessor processor(pythonGrammar());
        const QString line = repeated(text, 50'000);
        TokenList tokens = processor.tokenise(line);
        expectTokensInside(tokens.tokens(), line, text);
        const QString next = QStringLiteral("x = 1\n");
        expectTokensInside(processor.tokenise(next, tokens.takeContinuation()).tokens(), next, text);
    }
}

TEST(HostileText, DeepInItemsSharesItsScopes)
{
    GrammarProcessor processor(grammarOf(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)",
        "name": "g", "patterns": [{"include": "#group"}, {"match": "[0-9]", "name": "n"}]}})json"));
    const TokenList tokens = processor.tokenise(QString(200, QLatin1Char('(')) +
                                                QStringLiteral("(1)").repeated(1000) + QLatin1Char('\n'));
    const Token* first = nullptr;
    for (const Token& token : tokens.tokens()) {
        if (token.scopes.constLast() != QLatin1String("n"))
            continue;
        if (first == nullptr)
            first = &token;
        EXPECT_TRUE(token.scopes.isSharedWith(first->scopes));
    }
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->scopes.size(), 203);
}

TEST(HostileGrammar, WithManyCaptureNamesIsRead)
{
    std::string captures;
    for (int group = 0; group < 100'000; ++group)
        captures += (group == 0 ? "\"" : ",\"") + std::to_string(group) + R"(": {"name": "n"})";
    Tokeniser tokenise(R"json("patterns": [{"match": "(a)(b)?", "captures": {)json" + captures + "}}]");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+2 root n", "0+1 root n", "1+1 root n", "2+1 root"}));
}

TEST(HostileGrammar, WithAnExpressionThatTakesTooLongLosesTheRuleOnly)
{
    const HostLog log;
    Tokeniser tokenise(
        R"json("patterns": [{"match": "(?:a|aa)+$(?<=c)", "name": "slow"}, {"match": "b", "name": "b"}])json");
    EXPECT_EQ(tokenise((QString(3'000, QLatin1Char('a')) + QLatin1String("b\n")).toUtf8()),
              (Texts{"0+3000 root", "3000+1 root b", "3001+1 root"}));
    EXPECT_EQ(log.lines(),
              Texts{"diagnostic: grammar: an expression was given up on a long line: (?:a|aa)+$(?<=c)"});
}

TEST(HostileGrammar, WithRulesThatMatchNothingStopsTheLine)
{
    Tokeniser tokenise(
        R"json("patterns": [{"begin": "", "end": "", "name": "e"}, {"match": "", "name": "n"}])json");
    EXPECT_EQ(tokenise("ab\n"), Texts{"0+3 root"});
    EXPECT_EQ(tokenise("ab\n"), Texts{"0+3 root"});
}

TEST(HostileGrammar, ThatMovesStartsWhereverItLikesComesToAnEnd)
{
    Tokeniser back(R"json("patterns": [{"match": "(?<=(?1))(?(DEFINE)(\\Ka))", "name": "back"}])json");
    EXPECT_EQ(back("aaaa\n"), Texts{"0+5 root"});
    Tokeniser forth(
        R"json("patterns": [{"match": "(?=(?1))a(?(DEFINE)(aa\\K))", "captures": {"0": {"name": "c"}}}])json");
    EXPECT_EQ(forth("aaaa\n"), Texts{"0+5 root"});
}

TEST(HostileGrammar, WithNumbersThatNoGroupHasGivesThemNothing)
{
    Tokeniser tokenise(
        R"json("patterns": [{"match": "(a)", "captures": {"-1": {"name": "m"}, "99": {"name": "n"},
        "1": {"name": "one"}}}])json");
    EXPECT_EQ(tokenise("a\n"), (Texts{"0+1 root one", "1+1 root"}));
}

TEST(HostileGrammar, WithAnExpressionThatIsNoTextLosesTheRuleOnly)
{
    Tokeniser tokenise(
        R"json("patterns": [{"match": null}, {"match": [], "name": "l"}, {"begin": 5, "end": "x"},
        {"match": "x", "name": "x"}])json");
    EXPECT_EQ(tokenise("ax\n"), (Texts{"0+1 root", "1+1 root x", "2+1 root"}));
}

TEST(HostileGrammar, CannotSteerATerminalThroughTheLog)
{
    const HostLog log;
    Tokeniser tokenise(R"json("patterns": [{"include": "#\u001b[31mred\u0007\nforged: line"}])json");
    tokenise("a\n");
    EXPECT_EQ(log.lines(), Texts{"diagnostic: grammar: unable to find rule: #?[31mred??forged: line"});
}

TEST(HostileText, MayHoldAMovedStartFarAway)
{
    Tokeniser tokenise(
        R"json("patterns": [{"match": "x\\Ky", "name": "y"}, {"match": "a", "name": "a"}])json");
    const QString line = QString(200'000, QLatin1Char('a')) + QStringLiteral("xy\n");
    const Texts tokens = tokenise(line.toUtf8());
    ASSERT_EQ(tokens.size(), 200'003U);
    EXPECT_EQ(tokens[200'001], "200001+1 root y");
}

TEST(HostileText, MayBeCapturedAtLength)
{
    Tokeniser tokenise(
        R"json("patterns": [{"begin": "<(\\w+)", "end": "\\1>", "patterns": [{"match": "b", "name": "b"}]}])json");
    const QString name(10'000, QLatin1Char('a'));
    const QString line = QLatin1Char('<') + name + QString(200'000, QLatin1Char('b')) + QLatin1Char(' ') +
                         name + QLatin1String(">\n");
    tokenise(line.toUtf8());
    EXPECT_TRUE(tokenise.isOpen()); // the captured word has the b in it
    Tokeniser blanks(
        R"json("patterns": [{"begin": "<(\\w+)", "end": "\\1>", "patterns": [{"match": " ", "name": "b"}]}])json");
    const QString spaced =
        QLatin1Char('<') + name + QString(200'000, QLatin1Char(' ')) + name + QLatin1String(">\n");
    blanks(spaced.toUtf8());
    EXPECT_FALSE(blanks.isOpen());
}
