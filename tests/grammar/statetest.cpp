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

TEST(State, IsTheSameBehindTheSameText)
{
    expectSameState(strings, {"\"a\n"}, {"x \"b\n"}, true);
    expectSameState(strings, {"\"a\n"}, {"a\n"}, false);
    EXPECT_TRUE(Halvorin::TextMate::sameState(nullptr, nullptr));
}

TEST(State, SharesAStateThatDoesNotChange)
{
    Halvorin::TextMate::GrammarProcessor processor(grammarOf(strings));
    const auto one = processor.tokenise(QStringLiteral("\"a\n")).takeContinuation();
    const auto two = processor.tokenise(QStringLiteral("more\n"), one).takeContinuation();
    EXPECT_EQ(one, two);
}

TEST(State, SettlesBehindAChangeAsSoonAsItIsTheSame)
{
    // strings of four lines, each closed behind it
    const auto lineOf = [](int number) -> const char* {
        return number % 4 == 0 ? "\"a\n" : number % 4 == 3 ? "b\"\n" : "text\n";
    };
    struct Change
    {
        const char* text;
        int tokenised; // lines, the changed one among them
    };
    constexpr int lineCount = 1000;
    constexpr int changed = 501;
    GrammarProcessor processor(grammarOf(strings));
    std::vector<Continuation> ends;
    for (int number = 0; number < lineCount; ++number)
        ends.push_back(
            processor.tokenise(QString::fromUtf8(lineOf(number)), number == 0 ? nullptr : ends.back())
                .takeContinuation());
    for (const Change& change :
         {Change{"other\n", 1}, Change{"x\" \"y\n", 1}, Change{"x\" y\n", lineCount - changed}}) {
        Continuation state = ends[changed - 1];
        int tokenised = 0;
        for (int number = changed; number < lineCount; ++number) {
            state =
                processor.tokenise(QString::fromUtf8(number == changed ? change.text : lineOf(number)), state)
                    .takeContinuation();
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
    // the whole match may differ
    expectSameState(R"json("patterns": [{"begin": "x*<<(\\w+)", "end": "^\\1$"}])json", {"<<A\n"}, {"x<<A\n"},
                    true);
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
