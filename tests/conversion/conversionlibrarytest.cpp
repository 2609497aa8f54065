#include "conversion/core/conversionlibrary.h"
#include "conversion/core/regexconversionrule.h"

#include <gtest/gtest.h>
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

TEST(ConversionLibrary, convertsAnEmptyTextToAnEmptyOne)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule(".*"));
    EXPECT_EQ(library.convertBlocks(QString(), 0), QString());
    EXPECT_EQ(library.convertBlocks(QStringRef(), 0), QString());
    EXPECT_FALSE(library.nextBlockMatch(QString(), 0).hasMatch());
    EXPECT_FALSE(library.nextBlockMatch(QStringRef(), 0).hasMatch());
}

TEST(ConversionLibrary, triesInlineRulesOnAnEmptyText)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("^"));
    EXPECT_TRUE(library.nextInlineMatch(QString(), 0).hasMatch());
    EXPECT_TRUE(library.nextInlineMatch(QStringRef(), 0).hasMatch());
}

TEST(ConversionLibrary, convertsToNothingWhatNoBlockRuleMatches)
{
    ConversionLibrary library;
    EXPECT_EQ(blocks(library, "some text"), "");
    library.addBlockRule(bracketRule("x"));
    EXPECT_EQ(blocks(library, "aaa\nbbb"), "");
}

TEST(ConversionLibrary, dropsTheTextAheadOfABlockMatch)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("x+"));
    EXPECT_EQ(blocks(library, "ahead xx between x behind"), "[xx][x]");
}

TEST(ConversionLibrary, takesTheLeftmostMatchWhateverTheOrderOfTheRules)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("b+", "first"));
    library.addBlockRule(bracketRule("a+", "second"));
    EXPECT_EQ(blocks(library, "xaabb"), "second[aa]first[bb]");
}

TEST(ConversionLibrary, takesTheFirstRuleOfTwoThatMatchAtTheSamePlace)
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

TEST(ConversionLibrary, keepsTheOrderOfRulesThatArePrependedTogether)
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

TEST(ConversionLibrary, countsEachStepAsAFreshStartOfText)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("^a"));
    EXPECT_EQ(blocks(library, "aaab"), "[a][a][a]");
    ConversionLibrary lookingBehind;
    lookingBehind.addBlockRule(bracketRule("(?<!a)a"));
    EXPECT_EQ(blocks(lookingBehind, "aaa"), "[a][a][a]");
}

TEST(ConversionLibrary, doesNotLookAtTheOffsetOfAConversionOfBlocks)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("."));
    EXPECT_EQ(library.convertBlocks(QStringLiteral("ab"), 1), QStringLiteral("[a][b]"));
}

TEST(ConversionLibrary, endsAtAMatchThatTakesNothing)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("^"));
    EXPECT_EQ(blocks(library, "abc"), "[]");
}

TEST(ConversionLibrary, findsNothingByAnExpressionThatDoesNotCompile)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("(a"));
    library.addBlockRule(bracketRule("b"));
    library.addInlineRule(bracketRule("[a"));
    EXPECT_EQ(blocks(library, "ab"), "[b]");
    EXPECT_EQ(inlined(library, "ab"), "ab");
}

TEST(ConversionLibrary, matchesFromAnOffsetWithTheTextBeforeItInView)
{
    ConversionLibrary library;
    library.addBlockRule(bracketRule("(?<=a)b"));
    const QString text = QStringLiteral("xabab");
    EXPECT_EQ(library.nextBlockMatch(text, 2).start(), 2);
    EXPECT_EQ(library.nextBlockMatch(text, 3).start(), 4);
    EXPECT_FALSE(library.nextBlockMatch(text, 5).hasMatch());
    EXPECT_FALSE(library.nextBlockMatch(text, 600).hasMatch());
}

TEST(ConversionLibrary, leavesTheTextThatNoInlineRuleMatches)
{
    ConversionLibrary library;
    EXPECT_EQ(inlined(library, "some text"), "some text");
    library.addInlineRule(bracketRule("y"));
    EXPECT_EQ(inlined(library, "some text"), "some text");
}

TEST(ConversionLibrary, replacesInPlaceAndLeavesTheRest)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("a+"));
    EXPECT_EQ(inlined(library, "x aa y aaa z"), "x [aa] y [aaa] z");
    EXPECT_EQ(inlined(library, "x aa y aaa z", 5), "x aa y [aaa] z");
}

TEST(ConversionLibrary, leavesATextWhoseInlineOffsetIsItsLength)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("a"));
    EXPECT_EQ(inlined(library, "aaa", 3), "aaa");
    EXPECT_EQ(inlined(library, "aaa", 4), "aaa");
}

TEST(ConversionLibrary, stepsOverTheCharacterBehindAReplacement)
{
    ConversionLibrary library;
    library.addInlineRule(bracketRule("aa"));
    EXPECT_EQ(inlined(library, "aaaa"), "[aa]aa");
    EXPECT_EQ(inlined(library, "aa aa"), "[aa] [aa]");
    EXPECT_EQ(inlined(library, "aaaaa"), "[aa]a[aa]");
}

TEST(ConversionLibrary, doesNotLookIntoAReplacementAgain)
{
    ConversionLibrary library;
    library.addInlineRule(makeRule(expression("a"), [](ConversionMatch&) { return QStringLiteral("aaa"); }));
    EXPECT_EQ(inlined(library, "a.a"), "aaa.aaa");
}

TEST(ConversionLibrary, looksBehindIntoReplacements)
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

TEST(ConversionLibrary, goesOnWhereARuleSaysThatItsMatchEnds)
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

TEST(ConversionLibrary, endsWithTheTextWhenARuleTakesMoreThanThereIs)
{
    ConversionLibrary library;
    library.addBlockRule(longerRule());
    EXPECT_EQ(blocks(library, "a"), "a+");
}

TEST(ConversionMatch, tellsThatThereIsNone)
{
    const ConversionMatch none;
    EXPECT_FALSE(none.hasMatch());
    EXPECT_EQ(none.length(), 0);
    EXPECT_TRUE(none.source().isNull());
    EXPECT_EQ(none.impl(), nullptr);
}

TEST(ConversionRule, isSharedByItsCopies)
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

TEST(ConversionLibrary, leavesWhatNestsDeeperThanTwoHundredAsItStands)
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

TEST(Expression, matchesWhatItsCompiledFormIsTooLongFor)
{
    // the stack of compiled expressions holds less than this; where none are compiled, there is no such limit
    const QString text(140'000, QLatin1Char('a'));
    Hit hit;
    EXPECT_EQ(Expression(QStringLiteral("^(?:a|b)*$")).match(QStringRef(&text), 0, hit),
              Expression::Outcome::match);
    EXPECT_EQ(hit.whole.end, text.size());
}

TEST(Expression, tellsWhenItWasGivenUp)
{
    const int before = Expression::givenUpCount();
    const QString text(40, QLatin1Char('a'));
    Hit hit;
    EXPECT_EQ(Expression(QStringLiteral("^(?:a|aa)*b|c")).match(QStringRef(&text), 0, hit),
              Expression::Outcome::givenUp);
    EXPECT_EQ(Expression::givenUpCount(), before + 1);
}

} // namespace
