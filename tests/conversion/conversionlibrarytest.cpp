#include "conversion/core/conversionlibrary.h"
#include "conversion/core/regexconversionrule.h"
#include "support/qtcore/hostlog.h"

#include <gmock/gmock.h>
#include <type_traits>

using namespace Halvorin::Text;

namespace {

RuleExpression expression(const char* pattern)
{
    return {.name = QStringLiteral("test"), .pattern = QString::fromUtf8(pattern)};
}

/// A rule that puts what it matched in brackets, with a name before it.
ConversionRule bracketRule(const char* pattern, const char* name = "")
{
    return makeRule(expression(pattern), [name](ConversionMatch& match) -> QString {
        return QLatin1String(name) + QLatin1Char('[') + capturesOf(match).whole() + QLatin1Char(']');
    });
}

std::string blocks(const ConversionLibrary& library, const char* source)
{
    return library.convertBlocks(QString::fromUtf8(source), 0).toStdString();
}

std::string inlined(const ConversionLibrary& library, const char* source, std::size_t offset = 0)
{
    return library.convertInline(QString::fromUtf8(source), offset).toStdString();
}

static_assert(!std::is_copy_constructible_v<ConversionLibrary> &&
              !std::is_move_constructible_v<ConversionLibrary>);
static_assert(std::is_copy_constructible_v<ConversionRule> && std::is_copy_assignable_v<ConversionRule>);
static_assert(!std::is_copy_constructible_v<ConversionMatch> &&
              std::is_move_constructible_v<ConversionMatch>);

TEST(ConversionLibrary, ConvertsAnEmptyTextToAnEmptyOne)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule(".*"));
    EXPECT_EQ(library.convertBlocks(QString(), 0), QString());
    EXPECT_EQ(library.convertBlocks(QStringRef(), 0), QString());
    EXPECT_FALSE(library.nextBlockMatch(QString(), 0).hasMatch());
    EXPECT_FALSE(library.nextBlockMatch(QStringRef(), 0).hasMatch());
}

TEST(ConversionLibrary, TriesInlineRulesOnAnEmptyText)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("^"));
    EXPECT_TRUE(library.nextInlineMatch(QString(), 0).hasMatch());
    EXPECT_TRUE(library.nextInlineMatch(QStringRef(), 0).hasMatch());
}

TEST(ConversionLibrary, ConvertsToNothingWhatNoBlockRuleMatches)
{
    ConversionLibrary library;
    EXPECT_EQ(blocks(library, "some text"), "");
    library.addBlockRule(bracketRule("x"));
    EXPECT_EQ(blocks(library, "aaa\nbbb"), "");
}

TEST(ConversionLibrary, DropsTheTextAheadOfABlockMatch)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("x+"));
    EXPECT_EQ(blocks(library, "ahead xx between x behind"), "[xx][x]");
}

TEST(ConversionLibrary, TakesTheLeftmostMatchWhateverTheOrderOfTheRules)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("b+", "first"));
    library.addBlockRule(bracketRule("a+", "second"));
    EXPECT_EQ(blocks(library, "xaabb"), "second[aa]first[bb]");
}

TEST(ConversionLibrary, TakesTheFirstRuleOfTwoThatMatchAtTheSamePlace)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("a", "first"));
    library.addBlockRule(bracketRule("aaa", "second"));
    EXPECT_EQ(blocks(library, "xaaa"), "first[a]first[a]first[a]");
    library.prependBlockRule(bracketRule("aa", "third"));
    EXPECT_EQ(blocks(library, "xaaa"), "third[aa]first[a]");
    const ConversionRule copied = bracketRule("aaa", "fourth");
    library.prependBlockRule(copied);
    EXPECT_EQ(blocks(library, "xaaa"), "fourth[aaa]");
}

TEST(ConversionLibrary, KeepsTheOrderOfRulesThatArePrependedTogether)
{
    const std::vector<ConversionRule> rules = {bracketRule("a", "first"), bracketRule("aa", "second")};
    ConversionLibrary copying;
    copying.addBlockRule(bracketRule(".", "last"));
    copying.prependBlockRules(rules);
    EXPECT_EQ(blocks(copying, "aab"), "first[a]first[a]last[b]");

    ConversionLibrary moving;
    moving.addBlockRule(bracketRule(".", "last"));
    moving.prependBlockRules({bracketRule("aa", "second"), bracketRule("a", "first")});
    EXPECT_EQ(blocks(moving, "aab"), "second[aa]last[b]");
}

TEST(ConversionLibrary, CountsEachStepAsAFreshStartOfText)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("^a"));
    EXPECT_EQ(blocks(library, "aaab"), "[a][a][a]");
    ConversionLibrary lookingBehind;
    lookingBehind.addBlockRule(bracketRule("(?<!a)a"));
    EXPECT_EQ(blocks(lookingBehind, "aaa"), "[a][a][a]");
}

TEST(ConversionLibrary, DoesNotLookAtTheOffsetOfAConversionOfBlocks)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("."));
    EXPECT_EQ(library.convertBlocks(QStringLiteral("ab"), 1), QStringLiteral("[a][b]"));
}

TEST(ConversionLibrary, EndsAtAMatchThatTakesNothing)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("^"));
    EXPECT_EQ(blocks(library, "abc"), "[]");
}

TEST(ConversionLibrary, FindsNothingByAnExpressionThatDoesNotCompile)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("(a"));
    library.addBlockRule(bracketRule("b"));
    library.addInlineRule(bracketRule("[a"));
    EXPECT_EQ(blocks(library, "ab"), "[b]");
    EXPECT_EQ(inlined(library, "ab"), "ab");
}

TEST(ConversionLibrary, MatchesFromAnOffsetWithTheTextBeforeItInView)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("(?<=a)b"));
    const QString text = QStringLiteral("xabab");
    EXPECT_EQ(library.nextBlockMatch(text, 2).start(), 2);
    EXPECT_EQ(library.nextBlockMatch(text, 3).start(), 4);
    EXPECT_FALSE(library.nextBlockMatch(text, 5).hasMatch());
    EXPECT_FALSE(library.nextBlockMatch(text, 600).hasMatch());
}

TEST(ConversionLibrary, LeavesTheTextThatNoInlineRuleMatches)
{
    ConversionLibrary library;
    EXPECT_EQ(inlined(library, "some text"), "some text");
    library.addInlineRule(bracketRule("y"));
    EXPECT_EQ(inlined(library, "some text"), "some text");
}

TEST(ConversionLibrary, ReplacesInPlaceAndLeavesTheRest)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("a+"));
    EXPECT_EQ(inlined(library, "x aa y aaa z"), "x [aa] y [aaa] z");
    EXPECT_EQ(inlined(library, "x aa y aaa z", 5), "x aa y [aaa] z");
}

TEST(ConversionLibrary, LeavesATextWhoseInlineOffsetIsItsLength)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("a"));
    EXPECT_EQ(inlined(library, "aaa", 3), "aaa");
    EXPECT_EQ(inlined(library, "aaa", 4), "aaa");
}

TEST(ConversionLibrary, StepsOverTheCharacterBehindAReplacement)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("aa"));
    EXPECT_EQ(inlined(library, "aaaa"), "[aa]aa");
    EXPECT_EQ(inlined(library, "aa aa"), "[aa] [aa]");
    EXPECT_EQ(inlined(library, "aaaaa"), "[aa]a[aa]");
}

TEST(ConversionLibrary, DoesNotLookIntoAReplacementAgain)
{
    ConversionLibrary library;
    library.addInlineRule(makeRule(expression("a"), [](ConversionMatch&) { return QStringLiteral("aaa"); }));
    EXPECT_EQ(inlined(library, "a.a"), "aaa.aaa");
}

TEST(ConversionLibrary, LooksBehindIntoReplacements)
{
    ConversionLibrary library;
    library.addInlineRule(makeRule(expression("a"), [](ConversionMatch&) { return QStringLiteral("12"); }));
    library.addInlineRule(bracketRule("(?<=2.)b"));
    EXPECT_EQ(inlined(library, "a.b .b"), "12.[b] .b");
}

/// A rule that takes one more character than its expression matched.
ConversionRule longerRule()
{
    return makeUpdaterRule(expression("a"), [](ConversionMatch& match) {
        return std::pair(QString(capturesOf(match).whole() + QLatin1Char('+')), std::size_t(2));
    });
}

TEST(ConversionLibrary, GoesOnWhereARuleSaysThatItsMatchEnds)
{
    ConversionLibrary library;
    library.addBlockRule(longerRule());
    library.addBlockRule(bracketRule("."));
    EXPECT_EQ(blocks(library, "abcaa"), "a+[c]a+");

    const QString text = QStringLiteral("xabc");
    ConversionMatch match = longerRule().match(QStringRef(&text), 0);
    EXPECT_EQ(match.length(), 1);
    EXPECT_EQ(match.end(), 2);
    match.convertMatched();
    EXPECT_EQ(match.start(), 1);
    EXPECT_EQ(match.length(), 2);
    EXPECT_EQ(match.end(), 3);
    EXPECT_EQ(match.source(), QStringRef(&text));
}

TEST(ConversionLibrary, EndsWithTheTextWhenARuleTakesMoreThanThereIs)
{
    ConversionLibrary library;
    library.addBlockRule(longerRule());
    EXPECT_EQ(blocks(library, "a"), "a+");
}

TEST(ConversionMatch, TellsThatThereIsNone)
{
    const ConversionMatch none;
    EXPECT_FALSE(none.hasMatch());
    EXPECT_EQ(none.length(), 0);
    EXPECT_TRUE(none.source().isNull());
    EXPECT_EQ(none.impl(), nullptr);
}

TEST(ConversionRule, IsSharedByItsCopies)
{
    const ConversionRule rule = bracketRule("a");
    ConversionRule copy = rule;
    ConversionRule assigned = bracketRule("b");
    assigned = copy;
    const QString text = QStringLiteral("a");
    for (const ConversionRule* one : {&rule, &std::as_const(copy), &std::as_const(assigned)}) {
        ConversionMatch match = one->match(QStringRef(&text), 0);
        EXPECT_EQ(match.convertMatched(), QStringLiteral("[a]"));
    }
}

/// A library whose only block rule converts what is in parentheses by the library again.
class NestingLibrary : public ConversionLibrary
{
public:
    NestingLibrary()
    {
        addBlockRule(makeRule({.name = QStringLiteral("parentheses"),
                               .pattern = QStringLiteral("\\((?<inner>.*)\\)"),
                               .groups = {QStringLiteral("inner")}},
                              [this](ConversionMatch& match) -> QString {
                                  return QLatin1Char('<') + convertBlocks(capturesOf(match).group(0), 0) +
                                         QLatin1Char('>');
                              }));
    }
};

TEST(ConversionLibrary, LeavesWhatNestsDeeperThanTwoHundredAsItStands)
{
    const auto nested = [](int depth, char open, const QString& inner, char close) {
        return QString(depth, QLatin1Char(open)) + inner + QString(depth, QLatin1Char(close));
    };
    const NestingLibrary library;
    EXPECT_EQ(library.convertBlocks(nested(199, '(', QString(), ')'), 0), nested(199, '<', QString(), '>'));
    EXPECT_EQ(library.convertBlocks(nested(5000, '(', QString(), ')'), 0),
              nested(200, '<', nested(4800, '(', QString(), ')'), '>'));
    EXPECT_EQ(library.convertBlocks(QStringLiteral("(())"), 0), QStringLiteral("<<>>")); // as before
}

TEST(Expression, MatchesWhatItsCompiledFormIsTooLongFor)
{
    // the stack of compiled expressions holds less than this; where none are compiled, there is no such limit
    const QString text(140'000, QLatin1Char('a'));
    Hit hit;
    EXPECT_EQ(Expression(QStringLiteral("^(?:a|b)*$")).match(QStringRef(&text), 0, hit),
              Expression::Outcome::match);
    EXPECT_EQ(hit.whole.end, text.size());
}

TEST(ConversionLibrary, FindsNothingInATextWithHalvesOfCharacters)
{
    QString half = QStringLiteral("ab");
    half[1] = QChar(0xD800);
    for (const char* pattern : {".", "\\X", "[^b]", "a"}) {
        ConversionLibrary library;
        library.addBlockRule(bracketRule(pattern));
        EXPECT_EQ(library.convertBlocks(half, 0), QString()) << pattern;
        EXPECT_FALSE(library.nextBlockMatch(half, 0).hasMatch()) << pattern;
    }
}

TEST(ConversionLibrary, FindsNothingBehindARuleThatCutsACharacter)
{
    ConversionLibrary library;
    library.addBlockRule(makeUpdaterRule(expression("a"), [](ConversionMatch&) {
        return std::pair(QStringLiteral("[a]"), std::size_t(2)); // the letter, and half of what is behind it
    }));
    library.addBlockRule(bracketRule("."));
    EXPECT_EQ(blocks(library, "a\xf0\x9f\x98\x80"), "[a]");
}

TEST(ConversionLibrary, TakesOffsetsThatNoTextHas)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("a"));
    library.addInlineRule(bracketRule("a"));
    const QString text = QStringLiteral("aaa");
    for (const std::size_t offset :
         {std::size_t(4), std::size_t(1) << 31, std::size_t(1) << 32, ~std::size_t(0)}) {
        EXPECT_FALSE(library.nextBlockMatch(text, offset).hasMatch());
        EXPECT_FALSE(library.nextInlineMatch(text, offset).hasMatch());
        EXPECT_EQ(library.convertInline(text, offset), text);
    }
}

TEST(Expression, TellsWhenItWasGivenUp)
{
    const HostLog log;
    const int before = Expression::givenUpCount();
    const QString text(40, QLatin1Char('a'));
    Hit hit;
    EXPECT_EQ(Expression(QStringLiteral("^(?:a|aa)*b|c")).match(QStringRef(&text), 0, hit),
              Expression::Outcome::givenUp);
    EXPECT_EQ(Expression::givenUpCount(), before + 1);
    EXPECT_THAT(log.lines(), testing::ElementsAre(testing::HasSubstr(
                                 "text: an expression was given up on a long text: ^(?:a|aa)*b|c")));
}

} // namespace
