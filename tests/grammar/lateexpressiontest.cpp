// Expressions whose final form depends on where they are tried.

#include "grammar/debugstream.h"
#include "grammar/grammartester.h"
#include "support/concatenated.h"
#include "support/qtcore/hostlog.h"

TEST(BackReference, PutsCapturedTextInAsItStands)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "<(.)", "end": "\\1>", "name": "any"}])json");
    tokenise("<.\n");
    EXPECT_EQ(tokenise("abx>c\n"),
              (Texts{"0+2 root any", "2+2 root any", "4+2 root"})); // the full stop matches any character
}

TEST(BackReference, ReplacesReferencesInAscendingOrder)
{
    Tokeniser tokenise(
        R"json("patterns": [{"begin": "(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)", "end": "\\10", "name": "ten"}])json");
    tokenise("abcdefghij\n");
    EXPECT_EQ(tokenise("j a0 b\n"),
              (Texts{"0+2 root ten", "2+2 root ten", "4+3 root"})); // \1 and a 0, not \10
}

TEST(BackReference, ToAGroupThatTookNoPartIsNothing)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "(x)?(a)", "end": "\\1b", "name": "n"}])json");
    EXPECT_EQ(tokenise("acb.\n"), (Texts{"0+1 root n", "1+1 root n", "2+1 root n", "3+2 root"}));
}

TEST(BackReference, IsFoundAgainForManyTexts)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "<<(\\w+)", "end": "^\\1$", "name": "here"}])json");
    for (int round = 0; round < 2; ++round) {
        for (int mark = 0; mark < 300; ++mark) {
            const std::string text = concatenated({"m", std::to_string(mark)});
            tokenise(concatenated({"<<", text, "\n"}).c_str());
            tokenise("m\n");
            EXPECT_TRUE(tokenise.isOpen());
            tokenise(concatenated({text, "\n"}).c_str());
            EXPECT_FALSE(tokenise.isOpen());
        }
    }
}

TEST(BackReference, ThatMakesAnExpressionNotValidIsSaidWhenItIsTried)
{
    const DebugStream stream;
    Tokeniser tokenise(R"json("patterns": [{"begin": "a(.)", "end": "\\1", "name": "n"}])json");
    EXPECT_TRUE(DebugStream::messages().empty());
    tokenise("a(b\n");
    ASSERT_EQ(DebugStream::messages().size(), 1);
    EXPECT_TRUE(
        DebugStream::messages().constFirst().startsWith(QStringLiteral("Expression error: ( with reason ")));
    EXPECT_TRUE(tokenise.isOpen());
}

TEST(BackReference, ThatGrowsTheExpressionWithoutBoundIsGivenUp)
{
    const HostLog log;
    std::string groups;
    std::string text;
    for (int group = 2; group <= 9; ++group) {
        groups += "(.*?) ";
        for (int time = 0; time < 10; ++time)
            text += concatenated({"\\", std::to_string(group)});
        text += ' ';
    }
    Tokeniser tokenise(
        concatenated({R"("patterns": [{"begin": "<)", groups, R"(", "end": "\\1", "name": "n"}])"}));
    tokenise(concatenated({"<", text, "\n"}).c_str());
    EXPECT_TRUE(tokenise.isOpen());
    EXPECT_EQ(log.lines(), Texts{"diagnostic: grammar: an expression is too long with what was captured"});
}

TEST(BackReference, IsNotSearchedForAnewBehindEachMatch)
{
    Tokeniser end(
        R"json("patterns": [{"begin": "<<(\\w+)", "end": "\\1", "patterns": [{"match": "a", "name": "a"}]}])json");
    std::string line = "<<END ";
    for (int time = 0; time < 100'000; ++time)
        line += "a ";
    EXPECT_EQ(end(concatenated({line, "END\n"}).c_str()).size(), 200'004U);
    Tokeniser start(
        R"json("patterns": [{"match": "(['\"]).*?\\1", "name": "string"}, {"match": "a", "name": "a"}])json");
    EXPECT_EQ(start(concatenated({line, "''\n"}).c_str()).size(), 200'003U);
}

TEST(Anchor, AloneMatchesWhereBeginEnded)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "a", "end": "\\G", "name": "one"}])json");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+1 root one", "1+2 root"}));
}

TEST(Anchor, AloneMatchesNowhereElse)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "a", "end": ";", "name": "one",
        "patterns": [{"match": "b", "name": "b"}, {"match": "\\G", "name": "never"}]}])json");
    // behind the b a match of nothing would leave the rest of the line open
    EXPECT_EQ(tokenise("ab c;\n"),
              (Texts{"0+1 root one", "1+1 root one b", "2+2 root one", "4+1 root one", "5+1 root"}));
}

TEST(Anchor, NegatedMatchesAnywhereButWhereBeginEnded)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "a", "end": "(?!\\G)", "name": "one",
        "patterns": [{"match": "b", "name": "b"}]}])json");
    EXPECT_EQ(tokenise("abc\n"), (Texts{"0+1 root one", "1+1 root one b", "2+2 root"}));
    tokenise("ac\n");
    EXPECT_TRUE(tokenise.isOpen());
}

TEST(Anchor, WithinALongerExpressionIsWhereTheSearchStarts)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "a", "end": ";", "name": "item",
        "patterns": [{"match": "\\Gb", "name": "first"}, {"match": "b", "name": "other"}]}])json");
    EXPECT_EQ(tokenise("abb b;\n"),
              (Texts{"0+1 root item", "1+1 root item first", "2+1 root item first", "3+1 root item",
                     "4+1 root item other", "5+1 root item", "6+1 root"}));
}

TEST(Anchor, OfTheTextIsTheStartOfEachLine)
{
    Tokeniser tokenise(R"json("patterns": [{"match": "\\Aa", "name": "start"}])json");
    EXPECT_EQ(tokenise("aa\n"), (Texts{"0+1 root start", "1+2 root"}));
    EXPECT_EQ(tokenise("ba\n"), Texts{"0+3 root"});
    EXPECT_EQ(tokenise("a\n"), (Texts{"0+1 root start", "1+1 root"}));
}

TEST(MovedStart, IsTheStartOfTheMatch)
{
    Tokeniser tokenise(R"json("patterns": [{"match": "a\\Kb", "name": "k"}])json");
    EXPECT_EQ(tokenise("abab\n"), (Texts{"0+1 root", "1+1 root k", "2+1 root", "3+1 root k", "4+1 root"}));
}

TEST(Limit, IsReachedOnceInALine)
{
    const HostLog log;
    Tokeniser tokenise(
        R"json("patterns": [{"match": "(a|aa)+$(?<=c)\\1", "name": "slow"}, {"match": "a", "name": "a"}])json");
    // each search takes some ten milliseconds
    EXPECT_EQ(tokenise(QString(10'000, QLatin1Char('a')).append(QLatin1Char('\n')).toUtf8()).size(), 10'001U);
    EXPECT_EQ(log.lines(),
              Texts{"diagnostic: grammar: an expression was given up on a long line: (a|aa)+$(?<=c)\\1"});
}

TEST(Limit, OfAnEndIsBehindWhatIsUsual)
{
    for (const auto& [length, closes] : {std::pair(16'000, true), std::pair(17'000, false)}) {
        Tokeniser tokenise(R"json("patterns": [{"begin": "<(a+)", "end": "\\1>"}])json");
        const QByteArray word(length, 'a');
        tokenise("<" + word + "\n");
        tokenise(word + ">\n");
        EXPECT_EQ(tokenise.isOpen(), !closes) << length;
    }
}
