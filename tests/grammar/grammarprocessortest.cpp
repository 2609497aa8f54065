#include "grammar/grammarprocessor.h"

#include "grammar/grammartester.h"
#include "support/qtcore/hostlog.h"

#include <algorithm>

namespace {

/// Strings in double quotes with escapes, which may go over lines.
constexpr auto strings =
    R"json("patterns": [{"name": "string", "begin": "\"", "end": "\"", "contentName": "inside",
    "beginCaptures": {"0": {"name": "open"}}, "endCaptures": {"0": {"name": "close"}},
    "patterns": [{"name": "escape", "match": "\\\\."}]}])json";

std::string longLine(char character)
{
    std::string line(200'000, character);
    line.push_back('\n');
    return line;
}

} // namespace

TEST(GrammarProcessor, GivesAnEmptyLineTheRootScope)
{
    Tokeniser tokenise(R"("patterns": [{"match": "x", "name": "x"}])");
    EXPECT_EQ(tokenise("\n"), Texts{"0+1 root"});
    EXPECT_FALSE(tokenise.isOpen());
}

TEST(GrammarProcessor, GivesTheWholeLineTheRootScopeWithoutRules)
{
    Tokeniser tokenise(R"("patterns": [])");
    EXPECT_EQ(tokenise("a b\n"), Texts{"0+4 root"});
}

TEST(GrammarProcessor, GivesAMatchItsNameAndTheRestTheRoot)
{
    Tokeniser tokenise(R"("patterns": [{"match": "[0-9]+", "name": "number"}])");
    EXPECT_EQ(tokenise("a 12 b\n"), (Texts{"0+2 root", "2+2 root number", "4+3 root"}));
}

TEST(GrammarProcessor, TakesTheFirstListedOfTwoMatchesAtOnePlace)
{
    Tokeniser tokenise(R"("patterns": [{"match": "a", "name": "short"}, {"match": "ab", "name": "long"}])");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+1 root short", "1+2 root"}));
}

TEST(GrammarProcessor, TakesTheEarlierMatchWhateverTheOrder)
{
    Tokeniser tokenise(R"("patterns": [{"match": "b", "name": "b"}, {"match": "a", "name": "a"}])");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+1 root a", "1+1 root b", "2+1 root"}));
}

TEST(GrammarProcessor, StopsTheLineAtAMatchOfNothing)
{
    Tokeniser tokenise(R"("patterns": [{"match": "x*", "name": "x"}, {"match": "a", "name": "a"}])");
    EXPECT_EQ(tokenise("xxaa\n"), (Texts{"0+2 root x", "2+3 root"}));
    EXPECT_EQ(tokenise("xa\n"), (Texts{"0+1 root x", "1+2 root"})); // the next line starts anew
}

TEST(GrammarProcessor, LetsTheEndWinOverAnInnerPatternAtTheSamePlace)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "\\(", "end": "\\)", "name": "group",
        "patterns": [{"match": "\\).", "name": "inner"}]}])json");
    EXPECT_EQ(tokenise("(abcd)x\n"),
              (Texts{"0+1 root group", "1+4 root group", "5+1 root group", "6+2 root"}));
}

TEST(GrammarProcessor, LetsAnInnerPatternThatStartsBeforeTheEndMatch)
{
    Tokeniser tokenise(strings);
    EXPECT_EQ(tokenise("\"a\\\"b\"\n"),
              (Texts{"0+1 root string open", "1+1 root string inside", "2+2 root string inside escape",
                     "4+1 root string inside", "5+1 root string close", "6+1 root"}));
}

TEST(GrammarProcessor, ClosesAStringOnALaterLine)
{
    Tokeniser tokenise(strings);
    EXPECT_EQ(tokenise("x = \"ab\n"), (Texts{"4+1 root string open", "5+3 root string inside"}));
    EXPECT_TRUE(tokenise.isOpen());
    EXPECT_EQ(tokenise("c\\\"d\n"),
              (Texts{"0+1 root string inside", "1+2 root string inside escape", "3+2 root string inside"}));
    EXPECT_EQ(tokenise("ef\" y\n"), (Texts{"0+2 root string inside", "2+1 root string close", "3+3 root"}));
    EXPECT_FALSE(tokenise.isOpen());
}

TEST(GrammarProcessor, ClosesOnTheTextThatBeginCapturedOnly)
{
    Tokeniser tokenise(R"json("patterns": [{"begin": "<<(\\w+)", "end": "^\\1$", "name": "here"}])json");
    tokenise("<<END\n");
    tokenise("STOP\n");
    EXPECT_TRUE(tokenise.isOpen());
    EXPECT_EQ(tokenise("END\n"), (Texts{"0+3 root here", "3+1 root"}));
    EXPECT_FALSE(tokenise.isOpen());
}

TEST(GrammarProcessor, NestsItems)
{
    Tokeniser tokenise(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
        "patterns": [{"include": "#group"}]}})json");
    EXPECT_EQ(tokenise("(a(b)c)\n"), (Texts{"0+1 root g", "1+1 root g", "2+1 root g g", "3+1 root g g",
                                            "4+1 root g g", "5+1 root g", "6+1 root g", "7+1 root"}));
}

TEST(GrammarProcessor, GoesOnOutsideWhenAnInnerItemClosesOnALaterLine)
{
    Tokeniser tokenise(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
        "patterns": [{"include": "#group"}, {"match": "[0-9]", "name": "n"}]}})json");
    tokenise("(a\n");
    tokenise("(b\n");
    // what is around an open item fills nothing: the 3 has no token
    EXPECT_EQ(tokenise("1)2)3(\n"), (Texts{"0+1 root g g n", "1+1 root g g", "2+1 root g n", "3+1 root g",
                                           "5+1 root g", "6+1 root g"}));
}

TEST(GrammarProcessor, GivesWhatStandsBehindAnInnerItemTheScopesOfTheOuterOne)
{
    Tokeniser tokenise(R"json("patterns": [{"name": "string", "begin": "\"", "end": "\"", "patterns": [
        {"name": "field", "begin": "\\{", "end": "\\}"}, {"name": "escape", "match": "\\\\n"}]}])json");
    tokenise("\"{\n");
    EXPECT_EQ(tokenise("1} a \\n b\"\n"),
              (Texts{"0+1 root string field", "1+1 root string field", "2+3 root string",
                     "5+2 root string escape", "7+2 root string", "9+1 root string", "10+1 root"}));
}

TEST(GrammarProcessor, GoesOnAroundAnItemThatEndsAtTheStartOfALine)
{
    Tokeniser tokenise(
        R"json("patterns": [{"name": "rest", "begin": "<", "end": "(?=>)"}, {"name": "n", "match": "[0-9]"}])json");
    tokenise("<a\n");
    EXPECT_EQ(tokenise(">1\n"), (Texts{"0+1 root", "1+1 root n", "2+1 root"}));
}

TEST(GrammarProcessor, NestsRegions250Deep)
{
    for (const auto& [depth, isWhole] : {std::pair(250, true), std::pair(251, false)}) {
        Tokeniser tokenise(
            R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
            "patterns": [{"include": "#group"}]}})json");
        std::string line(static_cast<std::size_t>(depth), '(');
        line.append(static_cast<std::size_t>(depth), ')');
        line.push_back('\n');
        const Texts tokens = tokenise(line.c_str());
        // one bracket too many closes the group around it, and its own closing one stands outside
        EXPECT_EQ(tokens.back(), isWhole ? "500+1 root" : "501+2 root") << depth;
    }
}

TEST(GrammarProcessor, TriesAllOtherRulesWhereNoMoreMayOpen)
{
    Tokeniser tokenise(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
        "patterns": [{"include": "#group"}, {"match": "[0-9]", "name": "n"}, {"match": "'.*?'", "name": "s"}]}})json");
    std::string line(300, '(');
    line += "1')'2\n";
    const Texts tokens = tokenise(line.c_str());
    const auto has = [&tokens](const std::string& start, const std::string& end) {
        return std::any_of(tokens.begin(), tokens.end(), [&](const std::string& token) {
            return token.starts_with(start) && token.ends_with(end);
        });
    };
    EXPECT_TRUE(has("300+1 ", " g n"));
    EXPECT_TRUE(has("301+3 ", " g s"));
    EXPECT_TRUE(has("304+1 ", " g n"));
}

TEST(GrammarProcessor, NestsItemsOverLinesNoDeeperThanInOne)
{
    const HostLog log;
    Tokeniser tokenise(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
        "patterns": [{"include": "#group"}]}})json");
    for (int line = 0; line < 600; ++line)
        tokenise("((\n");
    tokenise(longLine(')').c_str());
    EXPECT_FALSE(tokenise.isOpen());
    EXPECT_EQ(log.lines(), Texts{"diagnostic: grammar: rules are nested too deeply"});
}

TEST(GrammarProcessor, NeverClosesARuleWithoutAnEnd)
{
    Tokeniser tokenise(R"("patterns": [{"begin": "#", "name": "rest"}])");
    tokenise("a # b\n");
    EXPECT_EQ(tokenise("c\n"), Texts{"0+2 root rest"});
    EXPECT_TRUE(tokenise.isOpen());
}

TEST(GrammarProcessor, GivesCapturesTheirNamesInAscendingOrder)
{
    Tokeniser tokenise(R"json("patterns": [{"match": "(\\w+)(\\()?(x)?", "name": "call",
        "captures": {"1": {"name": "function"}, "2": {"name": "bracket"}, "3": {"name": "never"}, "9": {"name": "none"}}}])json");
    EXPECT_EQ(tokenise("f(\n"), (Texts{"0+1 root call function", "1+1 root call bracket", "2+1 root"}));
}

TEST(GrammarProcessor, TreatsTheWholeMatchAsAnyOtherGroup)
{
    Tokeniser tokenise(
        R"json("patterns": [{"match": "a(b)", "captures": {"0": {"name": "all"}, "1": {"name": "one"}}}])json");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+2 root all", "1+1 root one", "2+1 root"}));
}

TEST(GrammarProcessor, GivesBeginAndEndTheirOwnCapturesAndThoseOfBoth)
{
    Tokeniser tokenise(
        R"json("patterns": [{"begin": "(a)", "end": "(b)", "name": "n", "captures": {"1": {"name": "both"}},
        "beginCaptures": {"0": {"name": "begin"}}, "endCaptures": {"0": {"name": "end"}}}])json");
    EXPECT_EQ(tokenise("acb\n"), (Texts{"0+1 root n begin", "0+1 root n both", "1+1 root n",
                                        "2+1 root n both", "2+1 root n end", "3+1 root"}));
}

TEST(GrammarProcessor, TakesBeginWhereARuleHasMatchToo)
{
    Tokeniser tokenise(R"("patterns": [{"begin": "a", "end": "b", "match": "x", "name": "n"}])");
    EXPECT_EQ(tokenise("xaxb\n"), (Texts{"0+1 root", "1+1 root n", "2+1 root n", "3+1 root n", "4+1 root"}));
}

TEST(GrammarProcessor, GivesACaptureWithoutANameThePlainScopes)
{
    Tokeniser tokenise(R"json("patterns": [{"match": "a(b)", "name": "m", "captures": {"1": {}}}])json");
    EXPECT_EQ(tokenise("ab\n"), (Texts{"0+1 root m", "1+1 root m", "2+1 root"}));
}

TEST(GrammarProcessor, ComesToAnEndWithABeginOfNothingThatIncludesItself)
{
    const HostLog log;
    Tokeniser tokenise(R"json("patterns": [{"include": "#a"}], "repository": {
        "a": {"begin": "(?=a)", "end": "b", "name": "a", "patterns": [{"include": "#a"}]}})json");
    tokenise("aaaa\n");
    EXPECT_TRUE(tokenise.isOpen());
    EXPECT_EQ(log.lines(), Texts{"diagnostic: grammar: rules are nested too deeply"});
    tokenise("bbbb\n");
}

TEST(GrammarProcessor, ComesToAnEndWithManyOpenBrackets)
{
    Tokeniser tokenise(
        R"json("patterns": [{"include": "#group"}], "repository": {"group": {"begin": "\\(", "end": "\\)", "name": "g",
        "patterns": [{"include": "#group"}]}})json");
    tokenise(longLine('(').c_str());
    EXPECT_TRUE(tokenise.isOpen());
    tokenise(longLine(')').c_str());
    EXPECT_FALSE(tokenise.isOpen());
}

TEST(GrammarProcessor, LosesOneRuleToAnExpressionThatIsNotValid)
{
    Tokeniser tokenise(
        R"json("patterns": [{"match": "(", "name": "bad"}, {"begin": "[", "end": "x"}, {"match": "a", "name": "a"},
        {"begin": "b", "end": "(", "name": "open"}])json");
    EXPECT_EQ(tokenise("a(\n"), (Texts{"0+1 root a", "1+2 root"}));
    tokenise("b\n");
    EXPECT_TRUE(tokenise.isOpen());
}

TEST(GrammarProcessor, TokenisesALineOfHalfCharacters)
{
    Halvorin::TextMate::GrammarProcessor processor(grammarOf(R"("patterns": [{"match": "a", "name": "a"}])"));
    QString line = QStringLiteral("xa\n");
    line[0] = QChar(0xD800);
    const auto tokens = processor.tokenise(line).tokens();
    ASSERT_EQ(tokens.size(), 3U);
    EXPECT_EQ(tokenText(tokens[1]), "1+1 root a");
}
