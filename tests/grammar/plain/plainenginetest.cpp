// The engine beside one that takes no short cuts, on random grammars and texts.

#include "grammar/plain/plainengine.h"
#include "grammar/debugstream.h"
#include "grammar/grammartester.h"
#include "grammar/plain/randomgrammar.h"
#include "support/qtcore/hostlog.h"

using namespace Halvorin::TextMate;

namespace {

std::string textsOf(const std::vector<Token>& tokens)
{
    std::string texts;
    for (const Token& token : tokens)
        texts += tokenText(token) + "; ";
    return texts;
}

struct Tally
{
    int lines = 0;
    int openLines = 0;
};

/// Until a line differs, or the plain engine would take too long for one.
void compare(const std::shared_ptr<const Grammar>& grammar, RandomGrammar& random, Tally& tally)
{
    GrammarProcessor processor(grammar);
    PlainEngine plain(*grammar);
    Continuation continuation;
    std::shared_ptr<const PlainEngine::Open> open;
    for (int number = 0; number < 6; ++number) {
        const QString line = random.line();
        try {
            open = plain.tokenise(line, open);
        } catch (const TooManySteps&) {
            return;
        }
        TokenList tokens = processor.tokenise(line, continuation);
        continuation = tokens.takeContinuation();
        ++tally.lines;
        tally.openLines += open != nullptr ? 1 : 0;
        ASSERT_EQ(textsOf(tokens.tokens()), textsOf(plain.tokens())) << line.toStdString();
        ASSERT_EQ(continuation != nullptr, open != nullptr) << line.toStdString();
    }
}

} // namespace

TEST(PlainEngine, GivesTheTokensOfTheEngine)
{
    const DebugStream stream; // many expressions are not valid
    const HostLog log;
    Tally tally;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        RandomGrammar random(seed);
        const QJsonObject object = random.grammar();
        const auto grammar = std::make_shared<const Grammar>(readJsonGrammar(object));
        for (int text = 0; text < 2; ++text)
            compare(grammar, random, tally);
        if (HasFatalFailure()) {
            ADD_FAILURE() << "seed " << seed << ": "
                          << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
            return;
        }
    }
    EXPECT_GT(tally.lines, 15'000);
    EXPECT_GT(tally.openLines, 5'000);
}
