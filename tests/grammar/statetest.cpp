// What is open at the end of a line, and when two lines start alike.

#include "grammar/grammartester.h"

using Halvorin::TextMate::Continuation;
using Halvorin::TextMate::GrammarProcessor;

namespace {

/// Strings in double quotes with escapes, which may go over lines.
constexpr auto strings =
    R"json("patterns": [{"name": "string", "begin": "\"", "end": "\"", "patterns": [{"match": "\\\\."}]}])json";

/// What is open behind lines.
Continuation stateBehind(GrammarProcessor& processor, const std::vector<const char*>& lines)
{
    Continuation state;
    for (const char* line : lines)
        state = processor.tokenise(QString::fromUtf8(line), state).takeContinuation();
    return state;
}

void expectSameState(const std::string& members, const std::vector<const char*>& first,
                     const std::vector<const char*>& second, bool isSame)
{
    GrammarProcessor processor(grammarOf(members));
    EXPECT_EQ(sameState(stateBehind(processor, first).get(), stateBehind(processor, second).get()), isSame)
        << members << ": " << first.back() << " and " << second.back();
}

} // namespace

TEST(State, ComesToTheSameStateWithTheSameText)
{
    Tokeniser first(strings);
    Tokeniser second(strings);
    first("\"a\n");
    second("x \"b\n");
    // each processor has rules of its own, so states are compared within one
    Halvorin::TextMate::GrammarProcessor processor(grammarOf(strings));
    const auto one = processor.tokenise(QStringLiteral("\"a\n")).takeContinuation();
    const auto two = processor.tokenise(QStringLiteral("x \"b\n")).takeContinuation();
    EXPECT_TRUE(sameState(one.get(), two.get()));
    EXPECT_FALSE(sameState(one.get(), nullptr));
    EXPECT_TRUE(Halvorin::TextMate::sameState(nullptr, nullptr));
}

TEST(State, SharesAStateThatDoesNotChange)
{
    Halvorin::TextMate::GrammarProcessor processor(grammarOf(strings));
    const auto one = processor.tokenise(QStringLiteral("\"a\n")).takeContinuation();
    const auto two = processor.tokenise(QStringLiteral("more\n"), one).takeContinuation();
    EXPECT_EQ(one, two);
}

TEST(State, SettlesBehindAChangeAsSoonAsTheStateIsTheSame)
{
    struct Change
    {
        const char* text;
        int tokenised; // lines, the changed one among them
    };
    Halvorin::TextMate::GrammarProcessor processor(grammarOf(strings));
    constexpr int lineCount = 1000;
    std::vector<Halvorin::TextMate::Continuation> ends;
    for (int number = 0; number < lineCount; ++number) { // strings of four lines
        const QString line = number % 4 == 0   ? QStringLiteral("\"a\n")
                             : number % 4 == 3 ? QStringLiteral("b\"\n")
                                               : QStringLiteral("text\n");
        ends.push_back(processor.tokenise(line, number == 0 ? nullptr : ends.back()).takeContinuation());
    }
    for (const Change& change : {Change{"other\n", 1}, Change{"x\" \"y\n", 1}, Change{"x\" y\n", 2}}) {
        Halvorin::TextMate::Continuation state = ends[500];
        int tokenised = 0;
        for (int number = 501; number < lineCount; ++number) {
            const QString line = number == 501     ? QString::fromUtf8(change.text)
                                 : number % 4 == 0 ? QStringLiteral("\"a\n")
                                 : number % 4 == 3 ? QStringLiteral("b\"\n")
                                                   : QStringLiteral("\"text\n");
            state = processor.tokenise(line, state).takeContinuation();
            ++tokenised;
            if (sameState(state.get(), ends[static_cast<std::size_t>(number)].get()))
                break;
        }
        EXPECT_EQ(tokenised, change.tokenised) << change.text;
    }
}

TEST(State, DiffersByTheRuleThatIsOpen)
{
    const std::string brackets =
        R"json("patterns": [{"begin": "\\(", "end": "\\)"}, {"begin": "\\[", "end": "\\]"}])json";
    expectSameState(brackets, {"(\n"}, {"x (\n"}, true);
    expectSameState(brackets, {"(\n"}, {"[\n"}, false);
    expectSameState(brackets, {"(\n"}, {"x\n"}, false);
}

TEST(State, DiffersByWhatBeginCaptured)
{
    const std::string here = R"json("patterns": [{"begin": "<<(\\w+)", "end": "^\\1$"}])json";
    expectSameState(here, {"<<A\n"}, {"x <<A\n", "more\n"}, true);
    expectSameState(here, {"<<A\n"}, {"<<B\n"}, false);
}

TEST(State, DiffersByWhatIsAroundTheOpenRule)
{
    const std::string nested =
        R"json("patterns": [{"begin": "<<(\\w+)", "end": "^\\1$", "patterns": [{"include": "#round"}]},
        {"include": "#round"}], "repository": {"round": {"begin": "\\(", "end": "\\)", "patterns": [{"include": "#round"}]}})json";
    expectSameState(nested, {"<<A (\n"}, {"<<A\n", "(\n"}, true);
    expectSameState(nested, {"<<A (\n"}, {"<<B (\n"}, false);
    expectSameState(nested, {"<<A (\n"}, {"(\n"}, false);
    expectSameState(nested, {"((\n"}, {"(\n"}, false);
}

TEST(State, StaysOpenBehindAMatchOfNothing)
{
    Tokeniser root(R"("patterns": [{"match": "x*", "name": "x"}])");
    EXPECT_EQ(root("a\n"), Texts{"0+2 root"});
    EXPECT_TRUE(root.isOpen());
    Tokeniser content(
        R"("patterns": [{"begin": "<", "end": ">", "name": "n", "patterns": [{"match": "x*", "name": "x"}]}])");
    EXPECT_EQ(content("<ab>\n"), Texts{}); // what is around the match of nothing fills nothing
    EXPECT_TRUE(content.isOpen());
    EXPECT_EQ(content(">\n"), (Texts{"0+1 root n", "1+1 root"}));
    EXPECT_FALSE(content.isOpen());
}

TEST(State, IsNotOpenBehindAMatchAtTheEndOfTheLine)
{
    Tokeniser tokenise(R"("patterns": [{"match": "a\\n", "name": "a"}, {"match": "$", "name": "e"}])");
    EXPECT_EQ(tokenise("a\n"), Texts{"0+2 root a"});
    EXPECT_FALSE(tokenise.isOpen());
}
